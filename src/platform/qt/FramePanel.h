#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QFrame>
#include <optional>

namespace zelvo::qt {

/// A flat frame with its caption in bold at the top left, above what stands in it. One without a caption has
/// no border, unless the form says `framed`; a caption without a border is a heading. A `quiet` caption is a
/// hint rather than a name.
class FramePanel : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE setCaption)
    Q_PROPERTY(bool framed READ framed WRITE setFramed)
    Q_PROPERTY(bool quiet READ quiet WRITE setQuiet)

public:
    explicit FramePanel(QWidget* parent = nullptr);
    const QString& caption() const { return caption_; }
    void setCaption(const QString& caption);
    bool framed() const { return framed_.value_or(!caption_.isEmpty()); }
    void setFramed(bool framed);
    bool quiet() const { return quiet_; }
    void setQuiet(bool quiet);
    /// A colour of its own behind the fields (a frame that can be edited now); nothing: the platform's. In a
    /// dark palette it is a tint, so that its texts stay readable.
    void setBackColor(std::optional<QColor> color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeRoom();
    void tint();
    QFont captionFont() const;
    int captionHeight() const;
    QSize withCaption(QSize size) const;

    QString caption_;
    std::optional<bool> framed_;
    bool quiet_ = false, tinting_ = false;
    std::optional<QColor> backColor_;
};

}  // namespace zelvo::qt
