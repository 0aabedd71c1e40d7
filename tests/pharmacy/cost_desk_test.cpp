#include "pharmacy/CostDesk.h"

#include "basics/Text.h"
#include "pharmacy/CostAnswer.h"
#include "pharmacy/PharmacyBook.h"
#include "support/TestDatabase.h"

namespace zelvo::pharmacy {
namespace {

using Parts = std::vector<std::string>;

struct CostDesk : ::testing::Test {
    CostDesk() { fields["DrugText"] = herbRow("작약(국산)", "18") + "/$RD$/" + herbRow("석고(중국)", "4.5"); }

    std::string herbRow(const std::string& herb, const std::string& price,
                        const std::string& amount = "72") const {
        const auto key = pharmacy.value("SELECT DGL_PK FROM t_DrugList WHERE DGL_Internal = '" + herb + "'");
        const auto name = herb.substr(0, herb.find('('));
        return basics::join({"", name, herb, key, "4", price, amount, "1", "0", "", ""}, "/$CD$/");
    }
    /// The answer's elements as a clinic takes them apart.
    static Parts elements(const std::string& page) {
        const auto start = page.find("[START]"), end = page.find("[END]");
        EXPECT_NE(end, std::string::npos) << page;
        return basics::split(basics::removeAll(page.substr(start + 7, end - start - 7), "amp;"), "/*/");
    }
    static FormFields with(FormFields asked, const FormFields& change) {
        for (const auto& [name, value] : change) asked[name] = value;
        return asked;
    }

    testing::TestDatabase pharmacy;
    PharmacyBook book{pharmacy.path()};
    FormFields fields = readForm(
        "Kind=1&DTR_PK=1&BesongMethod=2&BesongZip=03187&BesongJuso=서울&JobList_PK=1&Chubsu=20&DrugPrice=2,880&"
        "TJML_PK=1&PouchAmount=100&PouchTotal=45&PayMethod=1&TJAL_Slot=000");
};

TEST_F(CostDesk, RefusesWithItsReason) {
    const std::pair<FormFields, const char*> cases[] = {
        {{{"DTR_PK", "99"}}, "등록되지 않은 한의사입니다."},
        {{{"DTR_PK", "2"}}, "이 한의사에게 허용되지 않은 지불 방식입니다."},
        {{{"JobList_PK", "5"}}, "취급하지 않는 처방전 주문서입니다."},
        {{{"TJAL_Slot", "00000001"}}, "취급하지 않는 제형변화입니다."},
        {{{"Chubsu", "21"}}, "약재가격이 약재구성과 첩수에 맞지 않습니다."},
        {{{"DrugText", herbRow("작약(국산)", "17")}},
         "[작약] 약재의 단가가 변경되었습니다. 약재를 다시 선택하여 주십시오."},
        {{{"DrugText", herbRow("천산갑(베트남)", "140", "560")}},
         "[천산갑] 약재는 현재 취급하지 않습니다. 약재를 다시 선택하여 주십시오."},
        {{{"DrugText", ""}}, "약재정보가 없습니다."},
        {{{"DrugText", "/$CD$/작약/$CD$/"}}, "약재정보를 읽을 수 없습니다."},
        {{{"PouchTotal", "마흔"}}, "요청 값이 숫자가 아닙니다: PouchTotal"},
        {{{"PouchTotal", "-1"}}, "요청 값이 0보다 작습니다: PouchTotal"},
    };
    for (const auto& [change, reason] : cases)
        EXPECT_EQ(elements(answerCost(book, with(fields, change))), (Parts{"0", reason}));
    fields.erase("TJAL_Slot");
    EXPECT_EQ(elements(answerCost(book, fields)), (Parts{"0", "요청 항목이 빠졌습니다: TJAL_Slot"}));
}

TEST_F(CostDesk, RepricesAWaitingOrderOfThatDoctor) {
    const FormFields asked = readForm("Kind=1&DTR_PK=1&CBJ_PK=8&BesongMethod=4&BesongZip=");
    pharmacy.run(
        "UPDATE t_ChubangJun SET CBJ_UserCost = 1100, CBJ_UserCostNote = '가' || char(13, 10) || '나', CBJ_UserCostNoVAT = 50 WHERE CBJ_PK = 8");
    const auto parts = elements(answerCostUpdate(book, asked));
    ASSERT_EQ(parts.size(), 15U);
    EXPECT_EQ(parts[9], "3500&한의원: 3,500원");
    EXPECT_EQ(parts[12] + " " + parts[13], "1100&가vbCrLf나 50&");
    // The stored 20,643, the delivery with its tax, and the two amounts.
    EXPECT_EQ(basics::split(parts[1], "&")[0], std::to_string(20643 + 3500 + 350 + 1150));
    EXPECT_EQ(parts[14], std::to_string((20643 + 3500 + 350 + 1150) * 2 / 100));

    const std::pair<FormFields, const char*> cases[] = {
        {{{"DTR_PK", "2"}}, "처방전을 찾을 수 없습니다."},
        {{{"CBJ_PK", "7"}}, "대기 상태의 처방전이 아닙니다."},
        {{{"BesongMethod", "3"}}, "환자에게 배송하려면 배송주소의 우편번호가 필요합니다."}};
    for (const auto& [change, reason] : cases)
        EXPECT_EQ(elements(answerCostUpdate(book, with(asked, change))), (Parts{"0", reason}));
}

TEST(CostForm, DecodesTheFieldsAndKeepsNotesFromDividingTheAnswer) {
    const FormFields fields{{"a", "당 &="}, {"b", ""}, {"c", "100%"},
                            {"d", "%zz"},   {"", "x"}, {"e", "\uFFFD"}};
    EXPECT_EQ(readForm("a=%EB%8B%B9+%26%3d&b=&c=100%&d=%zz&=x&e=%FF"), fields);
    Price price;
    price.total.note = "a[END]b/*/c";
    EXPECT_NE(costAnswer(price).find("[START]1/*/0&abc/*/0&/*/"), std::string::npos);
}

}  // namespace
}  // namespace zelvo::pharmacy
