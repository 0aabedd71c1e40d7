#include "Pharmacy.h"
#include "basics/Numbers.h"
#include "pharmacy/Embedded.h"

namespace zelvo::pharmacy {
namespace {

constexpr auto priceToday = "date('now', 'localtime') BETWEEN b.DGD_StartDate AND b.DGD_EndDate";

TEST(Catalogue, HoldsTogether) {
    const TestPharmacy pharmacy;
    const struct {
        const char* name;
        std::string statement, expected;
    } cases[] = {
        {"fifteen tables", "SELECT count(*) FROM sqlite_master WHERE type = 'table'", "15"},
        {"many herbs", "SELECT count(*) >= 150 FROM t_DrugList WHERE DGL_IsValid = 1", "1"},
        {"one herb withdrawn", "SELECT count(*) FROM t_DrugList WHERE DGL_IsValid = 0", "1"},
        {"valid herbs without a price today",
         std::string(
             "SELECT DGL_Internal FROM t_DrugList a WHERE DGL_IsValid = 1 AND NOT EXISTS (SELECT 1 FROM t_DrugDanga b WHERE b.DGL_PK = a.DGL_PK AND ") +
             priceToday + ")",
         "천산갑(베트남)"},
        {"prices that overlap or end before they start",
         "SELECT a.DGL_PK FROM t_DrugDanga a, t_DrugDanga b WHERE a.DGL_PK = b.DGL_PK AND (a.DGD_EndDate < a.DGD_StartDate OR "
         "(a.rowid < b.rowid AND a.DGD_StartDate <= b.DGD_EndDate AND b.DGD_StartDate <= a.DGD_EndDate))",
         ""},
        {"gaps between a herb's periods up to 2099",
         "SELECT a.DGL_PK FROM t_DrugDanga a WHERE a.DGD_EndDate >= date('now', 'localtime') AND a.DGD_EndDate < '2099-12-31' AND NOT EXISTS "
         "(SELECT 1 FROM t_DrugDanga b WHERE b.DGL_PK = a.DGL_PK AND b.DGD_StartDate = date(a.DGD_EndDate, '+1 day'))",
         ""},
        {"dates that are not yyyy-mm-dd",
         "SELECT DGL_PK FROM t_DrugDanga WHERE DGD_StartDate IS NOT date(DGD_StartDate) OR DGD_EndDate IS NOT date(DGD_EndDate)",
         ""},
        {"origins under one name",
         "SELECT count(*) >= 5 FROM (SELECT 1 FROM t_DrugList GROUP BY DGL_CallSign HAVING count(*) > 1)",
         "1"},
        {"the pharmacy's prescriptions", "SELECT count(*) >= 20 FROM t_UserChubang WHERE DTR_PK = 0", "1"},
        {"its prescriptions' herbs that cannot be had today",
         std::string(
             "SELECT u.DGL_CallSign FROM t_UserDetail u JOIN t_UserChubang c ON c.UCB_PK = u.UCB_PK AND c.DTR_PK = 0 WHERE NOT EXISTS "
             "(SELECT 1 FROM t_DrugList a, t_DrugDanga b WHERE a.DGL_PK = u.DGL_PK AND b.DGL_PK = a.DGL_PK AND a.DGL_IsValid = 1 AND ") +
             priceToday + ")",
         ""},
        {"lines under another herb's name",
         "SELECT u.DGL_CallSign FROM t_UserDetail u JOIN t_DrugList a ON a.DGL_PK = u.DGL_PK WHERE a.DGL_CallSign <> u.DGL_CallSign "
         "AND NOT (u.DGL_CallSign = '통초')",
         ""},
        {"prescriptions without lines",
         "SELECT UCB_Name FROM t_UserChubang WHERE UCB_PK NOT IN (SELECT UCB_PK FROM t_UserDetail)", ""},
        {"slots out of range", "SELECT TJAL_Slot FROM t_TangJunAddList WHERE TJAL_Slot NOT BETWEEN 1 AND 64",
         ""},
        {"slots 3 and 64",
         "SELECT count(*) FROM t_TangJunAddList WHERE TJAL_Slot IN (3, 64) AND TJAL_IsValid = 1", "2"},
        {"all four kinds of order type",
         "SELECT count(DISTINCT JL_DrugVisible * 2 + JL_TangJunVisible) FROM t_JobList WHERE JL_IsValid = 1",
         "4"},
        {"pay methods", "SELECT DTR_ValidPay FROM t_Doctor ORDER BY DTR_PK", "111, 010, 001"},
        {"both kinds of notice, formatted text first",
         "SELECT group_concat(PGJ_ContType, '') FROM (SELECT * FROM t_PxGongJi ORDER BY PGJ_Type, PGJ_WriteDate DESC)",
         "10110"},
        {"mileage rows at odds with their orders",
         "SELECT s.CBJ_PK FROM t_Stock s LEFT JOIN t_ChubangJun a ON a.CBJ_PK = s.CBJ_PK WHERE s.CBJ_PK <> 0 AND "
         "(a.CBJ_PK IS NULL OR a.DTR_PK <> s.DTR_PK OR a.CBJ_IsCanceled <> s.CBJ_IsCanceled OR a.CBJ_RegDate <> s.STK_Date)",
         ""},
        {"orders whose herbs do not add up",
         "SELECT a.CBJ_PK FROM t_ChubangJun a WHERE a.CBJ_DrugCost <> coalesce((SELECT sum(DET_Money) FROM t_CBJDetail d WHERE d.CBJ_PK = a.CBJ_PK), 0) * CBJ_Chubsu",
         ""},
        {"orders without notes or dosage sheet",
         "SELECT CBJ_PK FROM t_ChubangJun WHERE CBJ_PK NOT IN (SELECT CBJ_PK FROM t_CBJcostDetail) OR CBJ_PK NOT IN (SELECT CBJ_PK FROM t_EatGuide)",
         ""},
        {"orders in all four states", "SELECT count(DISTINCT CBJ_State) FROM t_ChubangJun", "4"},
        {"orders still to come",
         "SELECT CBJ_PK FROM t_ChubangJun WHERE CBJ_RegDate > datetime('now', 'localtime')", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(pharmacy.read(c.statement), c.expected) << c.name;
}

TEST(Catalogue, HasAPriceForEveryMethodAndAddOn) {
    const TestPharmacy pharmacy;
    const Database database(pharmacy.path(), Database::Mode::Existing);
    for (Query row(database, "SELECT TJML_PK FROM t_TangJunMethodList WHERE TJML_IsValid = 1"); row.step();) {
        EXPECT_TRUE(hasMethodPrice(static_cast<int>(row.whole(0)))) << row.whole(0);
    }
    for (Query row(database, "SELECT TJAL_Slot FROM t_TangJunAddList WHERE TJAL_IsValid = 1"); row.step();) {
        EXPECT_TRUE(hasAddOnPrice(static_cast<int>(row.whole(0)))) << row.whole(0);
    }
}

TEST(Catalogue, KeepsItsEarlierOrdersAtWhatTheRulesSay) {
    const TestPharmacy pharmacy;
    const PharmacyBook book(pharmacy.path());
    const Database database(pharmacy.path(), Database::Mode::Existing);
    for (Query row(database, "SELECT DTR_PK, CBJ_PK FROM t_ChubangJun"); row.step();) {
        SCOPED_TRACE(row.whole(1));
        const auto doctorKey = static_cast<std::int32_t>(row.whole(0));
        const auto booked = book.order(doctorKey, static_cast<std::int32_t>(row.whole(1)));
        ASSERT_TRUE(booked);
        const auto price = repriceOrder(book.doctor(doctorKey)->terms, booked->order);
        for (std::size_t i = 0; i < price.lines.each.size(); ++i) {
            EXPECT_EQ(price.lines.each[i].won, booked->order.lines.each[i].won);
            EXPECT_EQ(price.lines.each[i].note, booked->order.lines.each[i].note);
        }
        const auto mileage = pharmacy.read("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = " + row.text(1));
        EXPECT_EQ(mileage, price.mileage > 0 ? basics::decimalText(std::int64_t{price.mileage}) : "");
    }
}

TEST(Catalogue, HasAPageForEveryWebNotice) {
    const TestPharmacy pharmacy;
    std::string keys;
    for (const auto& page : noticePages()) keys += (keys.empty() ? "" : ", ") + std::string(page.name);
    EXPECT_EQ(pharmacy.read("SELECT PGJ_PK FROM t_PxGongJi WHERE PGJ_ContType = 0 ORDER BY PGJ_PK"), keys);
}

}  // namespace
}  // namespace zelvo::pharmacy
