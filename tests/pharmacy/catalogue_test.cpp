#include "Pharmacy.h"
#include "basics/Numbers.h"
#include "pharmacy/Embedded.h"

namespace zelvo::pharmacy {
namespace {

TEST(Catalogue, HoldsTogether) {
    const TestPharmacy pharmacy;
    EXPECT_EQ(
        pharmacy.read(
            "SELECT DGL_Internal FROM t_DrugList WHERE DGL_IsValid = 1 AND DGL_PK NOT IN (SELECT DGL_PK FROM t_DrugDanga "
            "WHERE date('now', 'localtime') BETWEEN DGD_StartDate AND DGD_EndDate)"),
        "천산갑(베트남)")
        << "the one herb whose price has run out";
    EXPECT_EQ(
        pharmacy.read(
            "SELECT a.DGL_PK FROM t_DrugDanga a, t_DrugDanga b WHERE a.DGL_PK = b.DGL_PK AND (a.DGD_EndDate < a.DGD_StartDate OR "
            "(a.rowid < b.rowid AND a.DGD_StartDate <= b.DGD_EndDate AND b.DGD_StartDate <= a.DGD_EndDate))"),
        "")
        << "prices that overlap or end before they start";
    std::string keys;
    for (const auto& page : noticePages()) {
        if (const auto dot = page.name.find(".html"); dot != std::string_view::npos)
            keys += (keys.empty() ? "" : ", ") + std::string(page.name.substr(0, dot));
    }
    EXPECT_EQ(pharmacy.read("SELECT PGJ_PK FROM t_PxGongJi WHERE PGJ_ContType = 0 ORDER BY PGJ_PK"), keys);
}

TEST(Catalogue, HasAPriceForEveryMethodAndAddOn) {
    const TestPharmacy pharmacy;
    const Database database(pharmacy.path());
    for (Query row(database, "SELECT TJML_PK FROM t_TangJunMethodList WHERE TJML_IsValid = 1"); row.step();)
        EXPECT_TRUE(hasMethodPrice(static_cast<int>(row.whole(0)))) << row.whole(0);
    for (Query row(database, "SELECT TJAL_Slot FROM t_TangJunAddList WHERE TJAL_IsValid = 1"); row.step();)
        EXPECT_TRUE(hasAddOnPrice(static_cast<int>(row.whole(0)))) << row.whole(0);
}

TEST(Catalogue, KeepsItsEarlierOrdersAtWhatTheRulesSay) {
    const TestPharmacy pharmacy;
    const PharmacyBook book(pharmacy.path());
    const Database database(pharmacy.path());
    for (Query row(database, "SELECT DTR_PK, CBJ_PK FROM t_ChubangJun"); row.step();) {
        SCOPED_TRACE(row.whole(1));
        const auto doctorKey = static_cast<std::int32_t>(row.whole(0));
        const auto booked = book.order(doctorKey, static_cast<std::int32_t>(row.whole(1)));
        ASSERT_TRUE(booked);
        const auto price = repriceOrder(book.doctor(doctorKey)->terms, booked->order);
        for (std::size_t i = 0; i < price.lines.each.size(); ++i)
            EXPECT_EQ(price.lines.each[i].won, booked->order.lines.each[i].won);
        const auto mileage = pharmacy.read("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = " + row.text(1));
        EXPECT_EQ(mileage, price.mileage > 0 ? basics::decimalText(std::int64_t{price.mileage}) : "");
    }
}

}  // namespace
}  // namespace zelvo::pharmacy
