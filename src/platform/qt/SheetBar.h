#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <memory>

class QAction;
class QComboBox;
class QHBoxLayout;
class QTextCharFormat;
class QTextEdit;

namespace zelvo::qt {

class SheetPaper;

/// The bar over the dosage sheet's editor: the form of what is selected, bullets and alignment, and the sheet
/// on paper. It belongs to the editor of the name in its property `editor`, in the same form, and never takes
/// the focus from it.
class SheetBar : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString editor MEMBER editorName_)

public:
    explicit SheetBar(QWidget* parent = nullptr);
    /// The sheet as the patient gets it, under what the form says of clinic, patient and date; nullptr while
    /// it belongs to no editor.
    std::unique_ptr<SheetPaper> paper() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    using Change = std::function<void(QTextCharFormat&, bool)>;
    void addStyle(const QString& name, const QString& caption, const QString& tip, const QKeySequence& keys,
                  Change change);
    void addAlignment(const QString& caption, const QString& tip, Qt::Alignment alignment);
    void addFonts();
    void addColors();
    void addBullets();
    void addPaper();
    void follow();
    void format(const std::function<void(QTextCharFormat&)>& change);
    void showForm();
    QString textOf(const char* field) const;

    QString editorName_;
    QTextEdit* editor_ = nullptr;
    QHBoxLayout& row_;
    QComboBox *family_ = nullptr, *size_ = nullptr;
};

}  // namespace zelvo::qt
