#include "account/BalanceView.h"

#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::account {
namespace {

class BalanceViewTest : public ::testing::Test {
protected:
    BalanceViewTest() {
        auto connection = std::make_unique<testing::FaultyConnection>(pharmacy.connect());
        line = connection.get();
        session.g_conYakGuk = std::move(connection);
        session.m_DTRPK = 1;
        view.Init_StockGrids();
    }
    void book(const std::string& date, int order, const std::string& won, int cancelled = 0) const {
        pharmacy.run("INSERT INTO t_Stock (DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Date) VALUES (1, " +
                     std::to_string(order) + ", " + std::to_string(cancelled) + ", " + won + ", '" + date +
                     "')");
    }
    void order(const std::string& date, const std::string& won) const {
        pharmacy.run(
            "INSERT INTO t_ChubangJun (DTR_PK, CBJ_PayMethod, CBJ_IsPaid, CBJ_DrugCost, CBJ_RegDate) VALUES (1, 1, 1, " +
            won + ", '" + date + "')");
    }
    /// A, B, C, usable, and the three sums under the lists.
    std::vector<std::string> figures() const {
        return {view.txTotalStock.text(),     view.txtTotalUsedStock.text(), view.txtTotalMileage.text(),
                view.txtUsableStock.text(),   view.txtGridStock.text(),      view.txtGridStockUse.text(),
                view.txtGridMileageUse.text()};
    }
    using Figures = std::vector<std::string>;

    testing::TestDesktop desktop;
    testing::TestDatabase pharmacy{false};
    session::Session session;
    testing::FaultyConnection* line = nullptr;
    screen::Window form{desktop, "frmBalance", 9000, 6000};
    BalanceView view{form, {}, session};
    console::UserActions user{desktop};
};

TEST_F(BalanceViewTest, ReckonsTheBalanceAndLists) {
    book("2024-05-01", 0, "1000");
    book("2024-05-02 10:00:00", 7, "600");
    book("2024-05-02 11:00:00", 8, "900", 1);
    order("2024-05-02 10:00:00", "1500");
    desktop.show(form, [&] {
        user.press("ssrStockView(0)");
        EXPECT_EQ(figures(), (Figures{"1,000", "1,500", "600", "100", "\\ 1,000", "\\ 1,500", "\\ 600"}));
        EXPECT_EQ(view.tdbUsedStock.shownText(0, 0) + " " + view.tdbUsedStock.shownText(0, 1),
                  "2024-05-02 10:00:00 1,500");
        order("2024-05-03 09:00:00", "2000");
        user.date("dtpStockView(0)", "2024-05-02");
        user.date("dtpStockView(1)", "2024-05-02");
        user.press("ssrStockView(1)");
        EXPECT_EQ(figures(), (Figures{"1,000", "3,500", "600", "-1,900", "", "\\ 1,500", "\\ 600"}));
    });
}

TEST_F(BalanceViewTest, EachFailingReadIsTold) {
    book("2024-05-01", 0, "1000");
    for (int call = 1; call <= 6; ++call) {
        SCOPED_TRACE("read " + std::to_string(call));
        ASSERT_TRUE(view.Load_StockMoney("", ""));
        line->failAt(call);
        form.touch();
        view.ssrStockView0.userPress();
        desktop.expectBox("적립금 정보", "적립금 정보 확인 중 오류 발생.", screen::BoxIcon::Critical);
        EXPECT_EQ(view.txTotalStock.text(), call == 1 ? "0" : "1,000");
        EXPECT_EQ(view.txtUsableStock.text(), "1,000");
        EXPECT_EQ(view.tdbInStock.rowCount(), call == 4 ? 0 : 1);
        EXPECT_EQ(view.tdbInStock.emptyHint == "내역이 없습니다.", call != 4) << "nothing was read";
    }
}

TEST_F(BalanceViewTest, NoWonIsLostBeyondTenThousandRows) {
    pharmacy.run(
        "WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n WHERE i < 12000) "
        "INSERT INTO t_Stock (DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Date) "
        "SELECT 1, i % 2, 0, 100001, '2024-05-01' FROM n");
    ASSERT_TRUE(view.Load_StockMoney("", ""));
    EXPECT_EQ(figures(), (Figures{"600,006,000", "0", "600,006,000", "1,200,012,000", "\\ 600,006,000", "",
                                  "\\ 600,006,000"}));
    EXPECT_EQ(view.tdbInStock.rowCount(), 6000);
}

TEST_F(BalanceViewTest, ABalanceBeyond32BitsIsAFailure) {
    book("2024-05-01", 0, "2147483647");
    book("2024-05-02", 7, "1");
    EXPECT_FALSE(view.Load_StockMoney("", ""));
    EXPECT_EQ(view.txtUsableStock.text(), "");
}

}  // namespace
}  // namespace zelvo::account
