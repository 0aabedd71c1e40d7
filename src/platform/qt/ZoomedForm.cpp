#include "platform/qt/ZoomedForm.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QTextDocument>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>
#include <cmath>

#include "platform/qt/ClinicStyle.h"
#include "platform/qt/Forms.h"

namespace zelvo::qt {

namespace {

constexpr const char* factorMark = "zoom";

int times(int pixels, double factor) {
    return static_cast<int>(std::lround(pixels * factor));
}

QSize times(const QSize& size, double factor) {
    const auto bounded = [factor](int pixels) {
        return pixels >= QWIDGETSIZE_MAX ? pixels : times(pixels, factor);
    };
    return {bounded(size.width()), bounded(size.height())};
}

QFont times(QFont font, double factor) {
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * factor);
    } else {
        font.setPixelSize(times(font.pixelSize(), factor));
    }
    return font;
}

/// A widget as a text is laid out on it that brings its own sizes: with more dots to the inch.
class ZoomedGlass : public QPaintDevice {
public:
    ZoomedGlass(const QWidget& glass, double factor) : glass_(glass), factor_(factor) {}
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmDpiX:
                return times(glass_.logicalDpiX(), factor_);
            case PdmDpiY:
                return times(glass_.logicalDpiY(), factor_);
            case PdmPhysicalDpiX:
                return glass_.physicalDpiX();
            case PdmPhysicalDpiY:
                return glass_.physicalDpiY();
            case PdmWidth:
                return glass_.width();
            case PdmHeight:
                return glass_.height();
            case PdmDevicePixelRatio:
                return static_cast<int>(glass_.devicePixelRatio());
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(glass_.devicePixelRatio() * devicePixelRatioFScale());
            default:
                return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget& glass_;
    double factor_;
};

}  // namespace

double zoomOf(const QWidget& widget) {
    const QVariant factor = widget.window()->property(factorMark);
    return factor.isValid() ? factor.toDouble() : 1;
}

int zoomed(const QWidget& widget, int pixels) {
    return static_cast<int>(pixels * zoomOf(widget));
}

struct ZoomedForm::Design {
    struct Bounds {
        QPointer<QWidget> widget;
        QSize least, most;
    };
    struct Gaps {
        QPointer<QLayout> layout;
        QMargins margins;
        int across, down;  ///< -1: the style's
        std::vector<int> leastColumns, leastRows;
    };
    struct Blank {
        QSpacerItem* item;
        QSize size;
        QSizePolicy policy;
    };
    struct Letters {
        QPointer<QWidget> widget;
        QFont font;
    };
    struct Text {
        QPointer<QTextEdit> edit;
        QFont font;
        std::unique_ptr<QPaintDevice> glass;
    };
    std::vector<Bounds> bounds;
    std::vector<Gaps> gaps;
    std::vector<Blank> blanks;
    std::vector<Letters> letters;
    struct Tabs {
        QPointer<QPlainTextEdit> edit;
        double distance;
    };
    std::vector<Text> texts;
    std::vector<Tabs> tabs;

    explicit Design(QWidget& window) {
        add(window);
        for (QWidget* widget : window.findChildren<QWidget*>()) add(*widget);
        for (QLayout* layout : window.findChildren<QLayout*>()) add(*layout);
        for (QTextEdit* edit : window.findChildren<QTextEdit*>())
            texts.push_back({edit, edit->document()->defaultFont(), nullptr});
        for (QPlainTextEdit* edit : window.findChildren<QPlainTextEdit*>())
            tabs.push_back({edit, edit->tabStopDistance()});
    }

private:
    void add(QWidget& widget) {
        const QSize least = widget.minimumSize(), most = widget.maximumSize();
        if (!least.isNull() || most != QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX))
            bounds.push_back({&widget, least, most});
        // All others take their letters' size from what holds them.
        if (widget.isWindow() || (widget.property(formMark).toBool() && widget.testAttribute(Qt::WA_SetFont)))
            letters.push_back({&widget, widget.font()});
    }
    void add(QLayout& layout) {
        const auto* const grid = qobject_cast<QGridLayout*>(&layout);
        Gaps gap{&layout,
                 layout.contentsMargins(),
                 grid ? grid->horizontalSpacing() : layout.spacing(),
                 grid ? grid->verticalSpacing() : layout.spacing(),
                 {},
                 {}};
        for (int column = 0; grid && column < grid->columnCount(); ++column)
            gap.leastColumns.push_back(grid->columnMinimumWidth(column));
        for (int row = 0; grid && row < grid->rowCount(); ++row)
            gap.leastRows.push_back(grid->rowMinimumHeight(row));
        gaps.push_back(std::move(gap));
        for (int i = 0; i < layout.count(); ++i) {
            if (QSpacerItem* const blank = layout.itemAt(i)->spacerItem())
                blanks.push_back({blank, blank->sizeHint(), blank->sizePolicy()});
        }
    }
};

ZoomedForm::ZoomedForm(QWidget& window) : window_(window) {}

/// A text's layout outlives what it was measured on.
ZoomedForm::~ZoomedForm() {
    if (!design_) return;
    for (const Design::Text& text : design_->texts)
        if (text.edit) text.edit->document()->documentLayout()->setPaintDevice(text.edit->viewport());
}

void ZoomedForm::zoomTo(double factor) {
    if (factor == factor_) return;
    factor_ = factor;
    if (!design_) design_ = std::make_unique<Design>(window_);
    window_.setProperty(factorMark, factor);
    if (auto* style = qobject_cast<ClinicStyle*>(window_.style())) style->setZoom(factor);
    for (const Design::Letters& letters : design_->letters)
        if (letters.widget) letters.widget->setFont(times(letters.font, factor));
    zoomTexts();
    zoomGaps();
}

/// Texts that bring their own sizes: the toolkit would give them the window's letters as their standard ones.
void ZoomedForm::zoomTexts() {
    for (Design::Text& text : design_->texts) {
        if (!text.edit) continue;
        QTextDocument& document = *text.edit->document();
        document.setDefaultFont(text.font);
        auto glass = std::make_unique<ZoomedGlass>(*text.edit->viewport(), factor_);
        document.documentLayout()->setPaintDevice(glass.get());
        text.glass = std::move(glass);
        document.markContentsDirty(0, document.characterCount());
    }
    for (const Design::Tabs& tabs : design_->tabs)
        if (tabs.edit) tabs.edit->setTabStopDistance(tabs.distance * factor_);
}

void ZoomedForm::zoomGaps() {
    for (const Design::Bounds& bounds : design_->bounds) {
        if (!bounds.widget) continue;
        bounds.widget->setMinimumSize(times(bounds.least, factor_));
        bounds.widget->setMaximumSize(times(bounds.most, factor_));
    }
    for (const Design::Blank& blank : design_->blanks) {
        blank.item->changeSize(times(blank.size.width(), factor_), times(blank.size.height(), factor_),
                               blank.policy.horizontalPolicy(), blank.policy.verticalPolicy());
    }
    for (const Design::Gaps& gap : design_->gaps) {
        if (!gap.layout) continue;
        const QMargins& margins = gap.margins;
        gap.layout->setContentsMargins(times(margins.left(), factor_), times(margins.top(), factor_),
                                       times(margins.right(), factor_), times(margins.bottom(), factor_));
        const int across = gap.across < 0 ? gap.across : times(gap.across, factor_);
        const int down = gap.down < 0 ? gap.down : times(gap.down, factor_);
        auto* const grid = qobject_cast<QGridLayout*>(gap.layout.data());
        if (!grid) {
            gap.layout->setSpacing(across);
        } else {
            grid->setHorizontalSpacing(across);
            grid->setVerticalSpacing(down);
        }
        for (std::size_t i = 0; i < gap.leastColumns.size(); ++i)
            grid->setColumnMinimumWidth(static_cast<int>(i), times(gap.leastColumns[i], factor_));
        for (std::size_t i = 0; i < gap.leastRows.size(); ++i)
            grid->setRowMinimumHeight(static_cast<int>(i), times(gap.leastRows[i], factor_));
        gap.layout->invalidate();
    }
}

}  // namespace zelvo::qt
