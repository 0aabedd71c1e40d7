#include "pharmacy/PharmacyBook.h"

#include <array>

#include "basics/Numbers.h"
#include "pharmacy/PharmacyFile.h"

namespace zelvo::pharmacy {
namespace {

const std::string& existing(const std::string& path) {
    if (!isPharmacy(path)) throw DatabaseError(path + ": no pharmacy stands here (make one with init)");
    return path;
}

constexpr auto today = "date('now', 'localtime')";

}  // namespace

std::string stateWord(std::int64_t state) {
    static constexpr std::array words = {"대 기", "제 작", "발송대기", "완 료"};
    return state >= 0 && state < static_cast<std::int64_t>(words.size())
               ? words[static_cast<std::size_t>(state)]
               : "?";
}

PharmacyBook::PharmacyBook(const std::string& path) : database_(existing(path)) {}

std::optional<Doctor> PharmacyBook::doctor(std::int32_t doctorKey) const {
    Query query(
        database_,
        "SELECT DTR_Discount, DTR_Mileage, DTR_IsUsePouch, DTR_IsUseBox, DTR_IsUseForm, DTR_HosZip, DTR_ValidPay "
        "FROM t_Doctor WHERE DTR_PK = ?");
    if (!query.bind(doctorKey).step()) return std::nullopt;
    Doctor doctor;
    doctor.terms = {query.real(0),       query.real(1), query.whole(2) != 0, basics::toInt32(query.real(3)),
                    query.whole(4) != 0, query.text(5)};
    doctor.validPay = query.text(6);
    return doctor;
}

std::optional<OrderType> PharmacyBook::orderType(std::int32_t jobKey) const {
    Query query(database_,
                "SELECT JL_DrugVisible, JL_TangJunVisible FROM t_JobList WHERE JL_PK = ? AND JL_IsValid = 1");
    if (!query.bind(jobKey).step()) return std::nullopt;
    return OrderType{query.whole(0) != 0, query.whole(1) != 0};
}

bool PharmacyBook::offersMethod(int methodKey) const {
    Query query(database_, "SELECT 1 FROM t_TangJunMethodList WHERE TJML_PK = ? AND TJML_IsValid = 1");
    return query.bind(methodKey).step() && hasMethodPrice(methodKey);
}

bool PharmacyBook::offersAddOn(int slot) const {
    Query query(database_, "SELECT 1 FROM t_TangJunAddList WHERE TJAL_Slot = ? AND TJAL_IsValid = 1");
    return query.bind(slot).step() && hasAddOnPrice(slot);
}

std::optional<double> PharmacyBook::herbPrice(std::int32_t herbKey) const {
    Query query(database_,
                std::string("SELECT b.DGD_Danga FROM t_DrugList a JOIN t_DrugDanga b ON b.DGL_PK = a.DGL_PK "
                            "WHERE a.DGL_PK = ? AND a.DGL_IsValid = 1 AND b.DGD_StartDate <= ") +
                    today + " AND b.DGD_EndDate >= " + today);
    if (!query.bind(herbKey).step()) return std::nullopt;
    return query.real(0);
}

std::optional<BookedOrder> PharmacyBook::order(std::int32_t doctorKey, std::int32_t orderKey) const {
    Query query(
        database_,
        "SELECT a.CBJ_JojeCost, a.CBJ_DrugCost, a.CBJ_TJMLCost, a.CBJ_TJALCost, a.CBJ_PouchCost, a.CBJ_BoxCost, "
        "a.CBJ_FormCost, a.CBJ_BesongCost, a.CBJ_VATCost, a.CBJ_ElseCost, "
        "b.CCD_JojeCost, b.CCD_DrugCost, b.CCD_TJMLcost, b.CCD_TJALCost, b.CCD_PouchCost, b.CCD_BoxCost, "
        "b.CCD_FormCost, b.CCD_BesongCost, b.CCD_VATCost, b.CCD_ElseCost, "
        "a.CBJ_UserCost, a.CBJ_UserCostNote, a.CBJ_UserCostNoVAT, a.CBJ_UserCostNoteNoVAT, "
        "a.CBJ_BesongMethod, a.CBJ_Reci_Zip, a.CBJ_PayMethod, a.CBJ_State, a.CBJ_IsCanceled "
        "FROM t_ChubangJun a LEFT JOIN t_CBJcostDetail b ON b.CBJ_PK = a.CBJ_PK WHERE a.CBJ_PK = ? AND a.DTR_PK = ?");
    if (!query.bind(orderKey).bind(doctorKey).step()) return std::nullopt;
    const auto line = [&](int amount, int note) {
        return CostLine{basics::toInt32(static_cast<double>(query.whole(amount))), query.text(note)};
    };
    BookedOrder booked;
    auto& order = booked.order;
    for (int i = 0; i < 10; ++i) order.lines.each[static_cast<std::size_t>(i)] = line(i, i + 10);
    order.userCost = line(20, 21);
    order.userCostNoVat = line(22, 23);
    order.delivery = static_cast<Delivery>(query.whole(24));
    order.deliveryZip = query.text(25);
    order.payment = static_cast<Payment>(query.whole(26));
    booked.waiting = query.whole(27) == 0 && query.whole(28) == 0;
    return booked;
}

std::vector<OrderRow> PharmacyBook::orders() const {
    Query query(database_,
                "SELECT CBJ_PK, CBJ_RegDate, Patient_Name, CBJ_State, CBJ_IsPaid, CBJ_IsCanceled, "
                "CBJ_JojeCost+CBJ_DrugCost+CBJ_TJMLCost+CBJ_TJALCost+CBJ_PouchCost+CBJ_BoxCost+CBJ_FormCost+"
                "CBJ_BesongCost+CBJ_VATCost+CBJ_ElseCost+CBJ_UserCost+CBJ_UserCostNoVAT "
                "FROM t_ChubangJun ORDER BY CBJ_RegDate DESC, CBJ_PK DESC");
    std::vector<OrderRow> rows;
    while (query.step()) {
        rows.push_back({query.whole(0), query.text(1), query.text(2), stateWord(query.whole(3)),
                        query.whole(4) != 0, query.whole(5) != 0, query.whole(6)});
    }
    return rows;
}

bool PharmacyBook::changeOne(Query& query) {
    Transaction transaction(database_);
    query.step();
    const bool found = database_.changes() > 0;
    transaction.commit();
    return found;
}

bool PharmacyBook::setState(std::int64_t orderKey, int state) {
    Query query(database_, "UPDATE t_ChubangJun SET CBJ_State = ? WHERE CBJ_PK = ?");
    return changeOne(query.bind(state).bind(orderKey));
}

bool PharmacyBook::setPaid(std::int64_t orderKey, bool paid) {
    Query query(database_, "UPDATE t_ChubangJun SET CBJ_IsPaid = ? WHERE CBJ_PK = ?");
    return changeOne(query.bind(paid ? 1 : 0).bind(orderKey));
}

bool PharmacyBook::addDeposit(const std::string& doctorId, std::int64_t won) {
    Query query(
        database_,
        "INSERT INTO t_Stock (DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Method, STK_Date, STK_Note) "
        "SELECT DTR_PK, 0, 0, ?, 1, datetime('now', 'localtime'), ? FROM t_Doctor WHERE DTR_ID = ?");
    return changeOne(query.bind(won).bind(std::string(won < 0 ? "출금" : "입금")).bind(doctorId));
}

void PharmacyBook::publishAddresses(const std::string& base) {
    Transaction transaction(database_);
    Query info(database_, "UPDATE t_PxInfo SET PIF_CostURL = ?, PIF_CostUpdateURL = ?, PIF_FindZipURL = ?");
    info.bind(base + "/cost").bind(base + "/cost-update").bind(base + "/zip").step();
    Query notices(
        database_,
        "UPDATE t_PxGongJi SET PGJ_URLCont = ? || PGJ_PK WHERE PGJ_ContType = 0 AND PGJ_URLCont LIKE 'http://127.0.0.1%/notice/%'");
    notices.bind(base + "/notice/").step();
    transaction.commit();
}

}  // namespace zelvo::pharmacy
