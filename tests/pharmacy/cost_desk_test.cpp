#include "pharmacy/CostDesk.h"

#include "Pharmacy.h"
#include "basics/Text.h"
#include "pharmacy/CostAnswer.h"

namespace zelvo::pharmacy {
namespace {

std::string herbRow(const std::string& name, const std::string& key, const std::string& price,
                    const std::string& amount) {
    return basics::join({"", name, name + "(국산)", key, "4", price, amount, "1", "0", "", ""}, "/$CD$/");
}

/// Key and price today of a herb by the pharmacy's own name.
std::string herb(const TestPharmacy& pharmacy, const std::string& internal, const std::string& column) {
    return pharmacy.read(
        "SELECT " + column +
        " FROM t_DrugList a LEFT JOIN t_DrugDanga b ON b.DGL_PK = a.DGL_PK AND "
        "date('now','localtime') BETWEEN DGD_StartDate AND DGD_EndDate WHERE DGL_Internal = '" +
        internal + "'");
}

class CostDesk : public testing::Test {
protected:
    CostDesk() {
        const auto key = herb(pharmacy, "작약(국산)", "a.DGL_PK");
        fields = {{"Kind", "1"},
                  {"DTR_PK", "1"},
                  {"BesongMethod", "2"},
                  {"BesongZip", "03187"},
                  {"BesongJuso", "서울"},
                  {"JobList_PK", "1"},
                  {"Chubsu", "20"},
                  {"DrugPrice", "2,880"},
                  {"TJML_PK", "1"},
                  {"PouchAmount", "100"},
                  {"PouchTotal", "45"},
                  {"PayMethod", "1"},
                  {"TJAL_Slot", std::string(64, '0')}};
        fields["DrugText"] = herbRow("작약", key, "18", "72") + "/$RD$/" +
                             herbRow("석고", herb(pharmacy, "석고(중국)", "a.DGL_PK"), "4.5", "72");
    }

    /// The answer's elements as a clinic takes them apart.
    static std::vector<std::string> elements(const std::string& page) {
        const auto start = page.find("[START]"), end = page.find("[END]");
        EXPECT_GT(start, 0U) << page;
        EXPECT_NE(end, std::string::npos) << page;
        return basics::split(basics::removeAll(page.substr(start + 7, end - start - 7), "amp;"), "/*/");
    }

    TestPharmacy pharmacy;
    PharmacyBook book{pharmacy.path()};
    FormFields fields;
};

TEST_F(CostDesk, AnswersInTwelveElementsOfAmountAndNoteThenTheMileage) {
    const auto page = answerCost(book, fields);
    EXPECT_NE(page.find("3000&조제 &amp; 포장"), std::string::npos) << page;
    const auto parts = elements(page);
    ASSERT_EQ(parts.size(), 13U);
    EXPECT_EQ(parts[0], "1");
    EXPECT_EQ(parts[1], "22603&합계 22,603원vbCrLf마일리지 2%: 452원");
    EXPECT_EQ(parts[2], "3000&조제 & 포장: 1첩 150원 × 20첩");
    EXPECT_EQ(parts[5], "0&");
    EXPECT_EQ(parts[12], "452");
}

TEST_F(CostDesk, RefusesWithItsReason) {
    const struct {
        const char* name;
        FormFields change;
        const char* reason;
    } cases[] = {
        {"doctor", {{"DTR_PK", "99"}}, "등록되지 않은 한의사입니다."},
        {"pay method", {{"DTR_PK", "2"}}, "이 한의사에게 허용되지 않은 지불 방식입니다."},
        {"order type withdrawn", {{"JobList_PK", "5"}}, "취급하지 않는 처방전 주문서입니다."},
        {"method withdrawn", {{"TJML_PK", "6"}}, "취급하지 않는 탕전 방식입니다."},
        {"slot of nothing", {{"TJAL_Slot", "00000001"}}, "취급하지 않는 제형변화입니다."},
        {"no postal code for the patient",
         {{"BesongZip", " "}},
         "환자에게 배송하려면 배송주소의 우편번호가 필요합니다."},
        {"sum does not fit", {{"Chubsu", "21"}}, "약재가격이 약재구성과 첩수에 맞지 않습니다."},
        {"price of another day",
         {{"DrugText", herbRow("작약", herb(pharmacy, "작약(국산)", "a.DGL_PK"), "17", "72")}},
         "[작약] 약재의 단가가 변경되었습니다. 약재를 다시 선택하여 주십시오."},
        {"price run out",
         {{"DrugText", herbRow("천산갑", herb(pharmacy, "천산갑(베트남)", "a.DGL_PK"), "140", "560")}},
         "[천산갑] 약재는 현재 취급하지 않습니다. 약재를 다시 선택하여 주십시오."},
        {"herb withdrawn",
         {{"DrugText", herbRow("마두령", herb(pharmacy, "마두령(중국)", "a.DGL_PK"), "18", "72")}},
         "[마두령] 약재는 현재 취급하지 않습니다. 약재를 다시 선택하여 주십시오."},
        {"no herbs", {{"DrugText", ""}}, "약재정보가 없습니다."},
        {"cells missing", {{"DrugText", "/$CD$/작약/$CD$/"}}, "약재정보를 읽을 수 없습니다."},
        {"no number", {{"PouchTotal", "마흔"}}, "요청 값이 숫자가 아닙니다: PouchTotal"},
        {"below nothing", {{"PouchTotal", "-1"}}, "요청 값이 0보다 작습니다: PouchTotal"},
        {"delivery code", {{"BesongMethod", "5"}}, "배송 방식을 알 수 없습니다."},
        {"kind", {{"Kind", "2"}}, "지원하지 않는 요청입니다."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto asked = fields;
        for (const auto& [name, value] : c.change) asked[name] = value;
        EXPECT_EQ(elements(answerCost(book, asked)), (std::vector<std::string>{"0", c.reason}));
    }
    fields.erase("TJAL_Slot");
    EXPECT_EQ(elements(answerCost(book, fields))[1], "요청 항목이 빠졌습니다: TJAL_Slot");
}

TEST_F(CostDesk, LooksOnlyAtWhatTheOrderTypeCarries) {
    for (const auto& [job, changed] :
         {std::pair{"2", FormFields{{"TJML_PK", "0"}, {"TJAL_Slot", ""}, {"PouchTotal", "0"}}},
          {"3", FormFields{{"DrugText", ""}, {"Chubsu", "0"}, {"DrugPrice", "0"}}}}) {
        auto asked = fields;
        asked["JobList_PK"] = job;
        for (const auto& [name, value] : changed) asked[name] = value;
        EXPECT_EQ(elements(answerCost(book, asked))[0], "1") << job;
    }
}

TEST_F(CostDesk, RepricesAWaitingOrderOfThatDoctor) {
    const FormFields asked = {
        {"Kind", "1"}, {"DTR_PK", "1"}, {"CBJ_PK", "8"}, {"BesongMethod", "4"}, {"BesongZip", ""}};
    pharmacy.run(
        "UPDATE t_ChubangJun SET CBJ_UserCost = 1100, CBJ_UserCostNote = '가' || char(13, 10) || '나', CBJ_UserCostNoVAT = 50 WHERE CBJ_PK = 8");
    const auto parts = elements(answerCostUpdate(book, asked));
    ASSERT_EQ(parts.size(), 15U);
    EXPECT_EQ(parts[9], "3500&한의원: 3,500원");
    EXPECT_EQ(parts[12], "1100&가vbCrLf나");
    EXPECT_EQ(parts[13], "50&");
    // The stored 20,643, the delivery with its tax, and the two amounts.
    EXPECT_EQ(basics::split(parts[1], "&")[0], std::to_string(20643 + 3500 + 350 + 1150));
    EXPECT_EQ(parts[14], std::to_string((20643 + 3500 + 350 + 1150) * 2 / 100));

    const struct {
        const char* name;
        FormFields change;
        const char* reason;
    } cases[] = {
        {"another doctor's", {{"DTR_PK", "2"}}, "처방전을 찾을 수 없습니다."},
        {"moved on", {{"CBJ_PK", "7"}}, "대기 상태의 처방전이 아닙니다."},
        {"cancelled", {{"CBJ_PK", "6"}}, "대기 상태의 처방전이 아닙니다."},
        {"no postal code", {{"BesongMethod", "3"}}, "환자에게 배송하려면 배송주소의 우편번호가 필요합니다."}};
    for (const auto& c : cases) {
        auto refused = asked;
        for (const auto& [name, value] : c.change) refused[name] = value;
        EXPECT_EQ(elements(answerCostUpdate(book, refused)), (std::vector<std::string>{"0", c.reason}))
            << c.name;
    }
}

TEST(CostAnswer, KeepsNotesFromDividingTheAnswer) {
    Price price;
    price.total.note = "a[END]b/*/c";
    EXPECT_NE(costAnswer(price).find("[START]1/*/0&abc/*/0&/*/"), std::string::npos);
}

TEST(CostForm, DecodesTheFields) {
    const auto fields = readForm("a=%EB%8B%B9+%26%3d&b=&c=100%&d=%zz&=x&a2=%FF");
    EXPECT_EQ(
        fields,
        (FormFields{
            {"a", "당 &="}, {"b", ""}, {"c", "100%"}, {"d", "%zz"}, {"", "x"}, {"a2", "\xEF\xBF\xBD"}}));
}

}  // namespace
}  // namespace zelvo::pharmacy
