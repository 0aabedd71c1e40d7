// The sample chart: its patients, what it writes into their records, and its window.
#include <gtest/gtest.h>

#include <QtGui/QTextDocument>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>

#include "ChartWindow.h"
#include "gui/life/Host.h"
#include "support/Machine.h"
#include "support/TestDatabase.h"
#include "support/TestFolder.h"

namespace {

TEST(Patients, areReckoned) {
    using namespace std::chrono;
    const struct {
        const char* jumin;
        std::int16_t age, sex;
    } cases[] = {
        {"850312-2345678", 41, 2}, {"141126-3567890", 11, 1}, {"851131-1234567", 0, 1}, {"850312", 0, 0}};
    for (const auto& each : cases) {
        chart::Patient patient;
        patient.jumin = each.jumin;
        EXPECT_EQ(chart::ageOf(patient, year(2026) / 11 / 25), each.age) << each.jumin;
        EXPECT_EQ(chart::sexOf(patient), each.sex) << each.jumin;
    }
}

class Chart : public ::testing::Test {
protected:
    Chart() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        zelvo::testing::liveIn(folder_.path);
    }
    const zelvo::testing::TestFolder folder_;
    int count_ = 1;
    char name_[6] = "chart";
    char* words_[2] = {name_, nullptr};
};

// Text inside of the record stays text, whatever it looks like.
TEST_F(Chart, writesTheLatestOrderFirst) {
    const QApplication application(count_, words_);
    const QDateTime day(QDate(2026, 5, 6), QTime(9, 5));
    QTextDocument page;
    chart::writeRecord(
        page, {{day, {"환", 0, 0, 0, 15, 0, "", 40500, ""}},
               {day.addDays(1),
                {"첩약 <b>", 20, 100, 2.5F, 7, 21, "냉장", 1152000, "당귀/$CD$/6/$RD$/감초/$CD$/2.5"}}});
    EXPECT_EQ(page.toPlainText().toStdString(),
              "2026-05-07 09:05   첩약 <b>\n"
              "20첩 · 7일분 · 1일 2.5팩 · 1팩 100 ml · 총 21팩\n"
              "당귀\n6 g\n감초\n2.5 g\n\n"
              "전달사항  냉장\n"
              "합계  1,152,000원\n"
              "2026-05-06 09:05   환\n"
              "15일분\n"
              "합계  40,500원");
}

TEST_F(Chart, enterOpensZelvoForTheChosenPatientWhoseRecordKeepsTheOrders) {
    const QApplication application(count_, words_);
    const zelvo::testing::TestDatabase database;
    chart::ChartCall clinic;
    clinic.server = database.address();
    clinic.account = "doctor1/$/pass1";
    chart::ChartWindow window(clinic, {{1, "김하늘", "850312-2345678", "", "", "", "", ""},
                                       {2, "최민재", "140518-3567890", "", "", "", "", ""}});
    window.show();
    window.activateWindow();
    zelvo::testing::Onlooker onlooker;
    std::vector<std::string> patients;
    onlooker.atWindow = [&](QWidget& zelvo) {
        patients.push_back(zelvo.findChild<QLineEdit*>("txtPatientName")->text().toStdString());
        EXPECT_FALSE(window.close()) << "it would go from under the open window";
    };
    window.keep(2, {"첩약", 20, 0, 0, 0, 0, "", 1000, ""});
    const auto* const record = window.findChild<QTextEdit*>("txtRecord");
    EXPECT_EQ(record->toPlainText(), "");
    auto* const list = window.findChild<QTableWidget*>("tblPatients");
    for (const auto key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Enter}) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_TRUE(list->hasFocus());
        QTest::keyClick(list, key);
    }
    QTest::mouseClick(window.findChild<QPushButton*>("cmdZelvo"), Qt::LeftButton);
    EXPECT_EQ(patients, (std::vector<std::string>{"김하늘", "최민재", "최민재"}));
    EXPECT_TRUE(record->toPlainText().contains("첩약"));
    EXPECT_TRUE(window.statusBar()->currentMessage().startsWith("최민재님의 진료 기록에 처방 1건이"));
    EXPECT_TRUE(window.close());
}

}  // namespace
