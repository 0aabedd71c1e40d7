#pragma once

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QDialog>

#include "platform/qt/ZoomedForm.h"
#include "screen/Desktop.h"

class QHBoxLayout;

namespace zelvo::qt {

/// A message box: its text as it stands, plain and to be copied; a long one can be scrolled, and of one
/// without end the beginning is shown and the whole is copied. Y and N answer a question, Esc is No or OK.
class BoxDialog : public QDialog {
    Q_OBJECT

public:
    BoxDialog(const screen::MessageBox& box, QWidget* over);
    screen::Answer answer() const { return answer_; }
    void done(int result) override;

signals:
    /// It has been answered and still stands.
    void leaving();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& textWidget(const QString& text);
    void addButton(QHBoxLayout& row, const QString& caption, screen::Answer answer,
                   screen::Answer defaultAnswer);
    void give(screen::Answer answer);

    QString text_;
    QElapsedTimer stood_;
    bool asks_;
    screen::Answer answer_;
    ZoomedForm zoomed_{*this};
};

}  // namespace zelvo::qt
