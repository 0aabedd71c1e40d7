#include "basics/Numbers.h"
#include "pharmacy/Embedded.h"
#include "pharmacy/OrderPricing.h"
#include "pharmacy/PharmacyBook.h"
#include "pharmacy/Sqlite.h"
#include "support/TestDatabase.h"

namespace zelvo::pharmacy {
namespace {

TEST(Catalogue, HoldsTogether) {
    const testing::TestDatabase pharmacy;
    std::string pages;
    for (const auto& page : noticePages()) {
        if (const auto dot = page.name.find(".html"); dot != std::string_view::npos)
            pages += std::string(page.name.substr(0, dot)) + ",";
    }
    const std::tuple<const char*, std::string, std::string> questions[] = {
        {"the one herb whose price has run out",
         "SELECT group_concat(DGL_Internal) FROM t_DrugList WHERE DGL_IsValid = 1 AND DGL_PK NOT IN (SELECT DGL_PK FROM"
         " t_DrugDanga WHERE date('now', 'localtime') BETWEEN DGD_StartDate AND DGD_EndDate)",
         "천산갑(베트남)"},
        {"prices that overlap or end before they start",
         "SELECT a.DGL_PK FROM t_DrugDanga a, t_DrugDanga b WHERE a.DGL_PK = b.DGL_PK AND (a.DGD_EndDate < a.DGD_StartDate"
         " OR (a.rowid < b.rowid AND a.DGD_StartDate <= b.DGD_EndDate AND b.DGD_StartDate <= a.DGD_EndDate))",
         ""},
        {"a page for each notice that has one",
         "SELECT group_concat(PGJ_PK, ',') || ',' FROM (SELECT PGJ_PK FROM t_PxGongJi WHERE PGJ_ContType = 0 ORDER BY 1)",
         pages}};
    for (const auto& [name, question, answer] : questions)
        EXPECT_EQ(pharmacy.value(question), answer) << name;
    for (const auto& row : pharmacy.rows("SELECT TJML_PK FROM t_TangJunMethodList WHERE TJML_IsValid = 1"))
        EXPECT_TRUE(hasMethodPrice(basics::toInt32(row[0]))) << row[0];
    for (const auto& row : pharmacy.rows("SELECT TJAL_Slot FROM t_TangJunAddList WHERE TJAL_IsValid = 1"))
        EXPECT_TRUE(hasAddOnPrice(basics::toInt32(row[0]))) << row[0];

    const PharmacyBook book(pharmacy.path());
    for (const auto& row : pharmacy.rows("SELECT DTR_PK, CBJ_PK FROM t_ChubangJun")) {
        SCOPED_TRACE("an earlier order, at what the rules say: " + row[1]);
        const auto doctorKey = basics::toInt32(row[0]);
        const auto booked = book.order(doctorKey, basics::toInt32(row[1]));
        ASSERT_TRUE(booked);
        const auto price = repriceOrder(book.doctor(doctorKey)->terms, booked->order);
        for (std::size_t i = 0; i < price.lines.each.size(); ++i)
            EXPECT_EQ(price.lines.each[i].won, booked->order.lines.each[i].won);
        const auto mileage = pharmacy.value("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = " + row[1]);
        EXPECT_EQ(mileage, price.mileage > 0 ? basics::decimalText(std::int64_t{price.mileage}) : "");
    }
}

}  // namespace
}  // namespace zelvo::pharmacy
