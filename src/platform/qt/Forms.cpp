#include "platform/qt/Forms.h"

#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <array>

#include "basics/Fault.h"
#include "platform/qt/Owned.h"
#include "platform/qt/PageArea.h"
#include "ui_ManagementPage.h"
#include "ui_MyOcsPage.h"
#include "ui_NoticesPage.h"
#include "ui_OrderPage.h"
#include "ui_frmChangePassword.h"
#include "ui_frmChubangRead.h"
#include "ui_frmDoctorOCSmain.h"
#include "ui_frmEatGuideEditor.h"
#include "ui_frmLogin.h"
#include "ui_frmMessage.h"
#include "ui_frmMyChuBang.h"
#include "ui_frmPostalLookup.h"
#include "ui_frmYakGukDrug.h"

namespace zelvo::qt {

namespace {

template <class Form>
void setUp(QWidget& widget) {
    Form().setupUi(&widget);
}

/// A page scrolls by itself where the window is too small for it; the tabs and what stands below them never
/// do.
template <class Form>
void setUpPage(QWidget& page) {
    auto& content = owned<QWidget>();
    content.setProperty(formMark, true);
    setUp<Form>(content);
    auto& layout = owned<QVBoxLayout>(&page);
    layout.setContentsMargins(0, 0, 0, 0);
    layout.addWidget(&owned<PageArea>(content, &page));
}

/// Each search of the sent orders stands in one line, close beneath its tab and no wider than it needs.
void spaceSearches(const QWidget& page) {
    const auto& searches = *page.findChild<QTabWidget*>("c1tCBJmanage");
    for (int i = 0; i < searches.count(); ++i) {
        auto& line = dynamic_cast<QHBoxLayout&>(*searches.widget(i)->layout());
        line.setContentsMargins(0, 8, 0, 0);
        line.setSpacing(6);
        line.addStretch();
    }
}

/// The main window's pages are forms of their own.
void setUpMain(QWidget& widget) {
    Ui::frmDoctorOCSmain main;
    main.setupUi(&widget);
    setUpPage<Ui::NoticesPage>(*main.pageNotices);
    setUpPage<Ui::OrderPage>(*main.pageOrder);
    setUpPage<Ui::ManagementPage>(*main.pageManagement);
    spaceSearches(*main.pageManagement);
    setUpPage<Ui::MyOcsPage>(*main.pageMyOcs);
}

struct Form {
    const char* window;
    void (*setUp)(QWidget&);
};
constexpr std::array forms{
    Form{"frmChangePassword", setUp<Ui::frmChangePassword>},
    Form{"frmChubangRead", setUp<Ui::frmChubangRead>},
    Form{"frmDoctorOCSmain", setUpMain},
    Form{"frmEatGuideEditor", setUp<Ui::frmEatGuideEditor>},
    Form{"frmLogin", setUp<Ui::frmLogin>},
    Form{"frmMessage", setUp<Ui::frmMessage>},
    Form{"frmMyChuBang", setUp<Ui::frmMyChuBang>},
    Form{"frmPostalLookup", setUp<Ui::frmPostalLookup>},
    Form{"frmYakGukDrug", setUp<Ui::frmYakGukDrug>},
};

}  // namespace

std::unique_ptr<QWidget> makeForm(const std::string& windowName, void (*first)(QWidget&)) {
    const auto* const form = std::find_if(forms.begin(), forms.end(),
                                          [&](const Form& known) { return known.window == windowName; });
    if (form == forms.end()) throw basics::Fault("no form for the window " + windowName);
    auto widget = std::make_unique<QWidget>();
    widget->setProperty(formMark, true);
    if (first) first(*widget);
    form->setUp(*widget);
    return widget;
}

}  // namespace zelvo::qt
