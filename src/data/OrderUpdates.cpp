#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "basics/Dates.h"
#include "basics/Text.h"
#include "data/OrderOutcome.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::execute;
using running::placeholder;
using running::saysText;

namespace {

bool hasRow(Connection& Conn, const Statement& statement) {
    return running::readRow(Conn, statement, [](const RecordSet&) {});
}

/// Fills what a modification writes into the order's row. The key first: what a doctor types may look like
/// its placeholder.
const Statement& fillOrder(Statement& statement, const CBJmUpdate& row) {
    statement.fill("[CBJPK]", row.CBJ_PK)
        .fill("[Patient_Name]", row.Patient_Name)
        .fill("[Patient_Jumin]", row.Patient_Jumin)
        .fill("[Patient_Sex]", row.Patient_Sex)
        .fill("[Patient_Age]", row.Patient_Age)
        .fill("[Patient_Email]", row.Patient_Email)
        .fill("[CBJ_Reci_Tel]", row.CBJ_Reci_Tel)
        .fill("[CBJ_Reci_Cell]", row.CBJ_Reci_Cell)
        .fill("[CBJ_Reci_Zip]", row.CBJ_Reci_Zip)
        .fill("[CBJ_Reci_Address]", row.CBJ_Reci_Address)
        .fill("[CBJ_BesongMsg]", row.CBJ_BesongMsg)
        .fill("[CBJ_BesongMethod]", row.CBJ_BesongMethod)
        .fill("[CBJ_Reci_Date]", row.CBJ_Reci_Date)
        .fill("[CBJ_Send_Hospital]", row.CBJ_Send_Hospital)
        .fill("[CBJ_Send_Name]", row.CBJ_Send_Name)
        .fill("[CBJ_Send_Tel]", row.CBJ_Send_Tel)
        .fill("[CBJ_Send_Cell]", row.CBJ_Send_Cell)
        .fill("[CBJ_Send_Zip]", row.CBJ_Send_Zip)
        .fill("[CBJ_Send_Address]", row.CBJ_Send_Address)
        .fill("[CBJ_Msg]", row.CBJ_Msg);
    if (!row.costChanged) return statement;
    return statement.fill("[CBJ_BesongCost]", row.CBJ_BesongCost).fill("[CBJ_ElseCost]", row.CBJ_ElseCost);
}

/// The numbers that a modification can leave as they are.
constexpr std::pair<std::string_view, std::string CBJmUpdate::*> leavable[] = {
    {"Patient_Sex", &CBJmUpdate::Patient_Sex},
    {"Patient_Age", &CBJmUpdate::Patient_Age},
    {"CBJ_BesongMethod", &CBJmUpdate::CBJ_BesongMethod}};

void updateOrder(Connection& Conn, const CBJmUpdate& row) {
    std::string text(
        "UPDATE t_ChubangJun SET Patient_Name = '[Patient_Name]', Patient_Jumin = '[Patient_Jumin]', Patient_Sex = [Patient_Sex], "
        "Patient_Age = [Patient_Age], Patient_Email = '[Patient_Email]', CBJ_Reci_Tel = '[CBJ_Reci_Tel]', CBJ_Reci_Cell = '[CBJ_Reci_Cell]', "
        "CBJ_Reci_Zip = '[CBJ_Reci_Zip]', CBJ_Reci_Address = '[CBJ_Reci_Address]', CBJ_BesongMsg = '[CBJ_BesongMsg]', "
        "CBJ_BesongMethod = [CBJ_BesongMethod], CBJ_Reci_Date = '[CBJ_Reci_Date]', "
        "CBJ_Send_Hospital = '[CBJ_Send_Hospital]', CBJ_Send_Name = '[CBJ_Send_Name]', CBJ_Send_Tel = '[CBJ_Send_Tel]', "
        "CBJ_Send_Cell = '[CBJ_Send_Cell]', CBJ_Send_Zip = '[CBJ_Send_Zip]', CBJ_Send_Address = '[CBJ_Send_Address]', "
        "CBJ_Msg = '[CBJ_Msg]'");
    for (const auto& [column, value] : leavable) {
        if ((row.*value).empty()) text = basics::replaceAll(text, placeholder(column), column);
    }
    Statement statement(std::move(text));
    if (row.costChanged) {
        statement.add(", CBJ_BesongCost = [CBJ_BesongCost] ").add(", CBJ_ElseCost = [CBJ_ElseCost] ");
    }
    statement.add("WHERE CBJ_PK = [CBJPK]");
    execute(Conn, fillOrder(statement, row));
}

void updateCostNotes(Connection& Conn, const CBJmUpdate& row) {
    execute(Conn, Statement("UPDATE t_CBJCostDetail SET "
                            "CCD_ElseCost = '[CCD_ElseCost]', "
                            "CCD_BesongCost = '[CCD_BesongCost]'"
                            "WHERE CBJ_PK = [CBJPK]")
                      .fill("[CBJPK]", row.CBJ_PK)
                      .fill("[CCD_ElseCost]", row.CCD_ElseCost)
                      .fill("[CCD_BesongCost]", row.CCD_BesongCost));
}

Statement fillSheet(Statement statement, const CBJmUpdate& row) {
    return statement.fill("[CBJPK]", row.CBJ_PK)
        .fill("[BogYak]", row.BogYak)
        .fill("[HospName]", row.HospName)
        .fill("[PhoneNo]", row.PhoneNo);
}

bool hasSheet(Connection& Conn, const CBJmUpdate& row) {
    return hasRow(Conn,
                  Statement("SELECT CBJ_PK FROM t_EatGuide WITH (READCOMMITTEDLOCK) WHERE CBJ_PK = [CBJPK]")
                      .fill("[CBJPK]", row.CBJ_PK));
}

/// False when the row of a new sheet can't be written.
bool updateSheet(clsZELVORecordSet& records, Connection& Conn, const CBJmUpdate& row) {
    execute(Conn,
            fillSheet(Statement("UPDATE t_EatGuide "
                                "SET BogYak = '[BogYak]', HospName = '[HospName]', PhoneNo = '[PhoneNo]' "
                                "WHERE CBJ_PK = [CBJPK]"),
                      row));
    if (!row.newSheet || hasSheet(Conn, row)) return true;
    return records.Insert_ChubangJun_EatGuide(Conn, row.CBJ_PK, row.BogYak, row.HospName, row.PhoneNo) != -1;
}

/// The order's mileage becomes what it earns now. False when a row that it needs can't be written.
bool updateMileage(clsZELVORecordSet& records, Connection& Conn, const CBJmUpdate& row) {
    const bool booked = hasRow(
        Conn, Statement("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = [CBJPK] ").fill("[CBJPK]", row.CBJ_PK));
    if (booked) {
        execute(Conn, Statement("UPDATE t_Stock SET STK_Money = [MileageCost] WHERE CBJ_PK = [CBJPK]")
                          .fill("[MileageCost]", row.mileageMoney)
                          .fill("[CBJPK]", row.CBJ_PK));
        return true;
    }
    if (row.mileageMoney <= 0) return true;
    // Another desk may have cancelled it since: a cancelled order earns nothing.
    if (hasRow(Conn,
               Statement("SELECT CBJ_PK FROM t_ChubangJun WHERE CBJ_PK = [CBJPK] AND CBJ_IsCanceled = 1")
                   .fill("[CBJPK]", row.CBJ_PK)))
        return true;
    const std::string time = records.RecordSet_SvrGetdate(Conn);
    if (time == "-1") return false;
    return records.Insert_ChubangJun_Mileage(Conn, row.DTR_PK, row.CBJ_PK, row.mileageMoney,
                                             basics::formatDateTime(time)) != -1;
}

/// Whether order and sheet say what a modification wrote. Its order, its price and its sheet stand or fall
/// together. Throws Fault.
bool modificationStands(Connection& Conn, const CBJmUpdate& row) {
    const Transaction waiting(Conn, orderTurn(row.CBJ_PK));
    Statement order(
        "SELECT CBJ_PK FROM t_ChubangJun WITH (READCOMMITTEDLOCK) WHERE CBJ_PK = [CBJPK] "
        "AND CBJ_Reci_Date = '[CBJ_Reci_Date]' ");
    for (const char* column :
         {"Patient_Name", "Patient_Jumin", "Patient_Email", "CBJ_Reci_Tel", "CBJ_Reci_Cell", "CBJ_Reci_Zip",
          "CBJ_Reci_Address", "CBJ_BesongMsg", "CBJ_Send_Hospital", "CBJ_Send_Name", "CBJ_Send_Tel",
          "CBJ_Send_Cell", "CBJ_Send_Zip", "CBJ_Send_Address", "CBJ_Msg"}) {
        order.add(saysText(column));
    }
    for (const auto& [column, value] : leavable) {
        if (!(row.*value).empty())
            order.add("AND " + std::string(column) + " = " + placeholder(column) + " ");
    }
    if (row.costChanged) order.add("AND CBJ_BesongCost = [CBJ_BesongCost] AND CBJ_ElseCost = [CBJ_ElseCost]");
    if (!hasRow(Conn, fillOrder(order, row))) return false;
    const bool blank = row.BogYak.empty() && row.HospName.empty() && row.PhoneNo.empty();
    if (blank && !hasSheet(Conn, row)) return true;
    Statement sheet("SELECT CBJ_PK FROM t_EatGuide WHERE CBJ_PK = [CBJPK] ");
    for (const char* column : {"BogYak", "HospName", "PhoneNo"}) sheet.add(saysText(column));
    return hasRow(Conn, fillSheet(sheet, row));
}

/// Runs a unit of work and, where the answer to its commit was lost, asks another connection after it.
template <class Steps>
CommitOutcome committed(Connection& Conn, std::int32_t CBJ_PK, Steps&& steps,
                        const std::function<std::optional<bool>(Connection& Conn)>& stands) {
    try {
        Transaction transaction(Conn, orderTurn(CBJ_PK));
        Together together(Conn);
        if (!steps() || together.send() < together.count()) return CommitOutcome::Refused;
        const CommitOutcome outcome = transaction.commit();
        if (outcome != CommitOutcome::Unknown) return outcome;
    } catch (const std::exception&) {
        return CommitOutcome::Refused;
    }
    return outcomeOf(askAnother(Conn, stands));
}

}  // namespace

CommitOutcome clsZELVORecordSet::Update_ChubangJun(Connection& Conn, const CBJmUpdate& row) {
    return committed(
        Conn, row.CBJ_PK,
        [&] {
            updateOrder(Conn, row);
            bool result = true;
            if (row.costChanged) {
                updateCostNotes(Conn, row);
                result = updateMileage(*this, Conn, row);
            }
            return updateSheet(*this, Conn, row) && result;
        },
        [&](Connection& other) { return modificationStands(other, row); });
}

CommitOutcome clsZELVORecordSet::Update_CBJCancel(Connection& Conn, std::int32_t CBJ_PK) {
    return committed(
        Conn, CBJ_PK,
        [&] {
            execute(Conn, Statement("UPDATE t_ChubangJun SET CBJ_IsCanceled = 1 "
                                    " WHERE CBJ_PK = [CBJPK]")
                              .fill("[CBJPK]", CBJ_PK));
            execute(Conn, Statement("UPDATE t_Stock SET CBJ_IsCanceled = 1 "
                                    " WHERE CBJ_PK = [CBJPK]")
                              .fill("[CBJPK]", CBJ_PK));
            return true;
        },
        [&](Connection& other) { return orderIsCanceled(other, CBJ_PK); });
}

}  // namespace zelvo::data
