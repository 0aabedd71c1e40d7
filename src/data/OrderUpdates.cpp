#include "basics/Dates.h"
#include "data/OrderOutcome.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::execute;

namespace {

void updateOrder(Connection& Conn, const CBJmUpdate& row) {
    Statement statement(
        "UPDATE t_ChubangJun SET Patient_Name = '[Patient_Name]', Patient_Jumin = '[Patient_Jumin]', Patient_Sex = [Patient_Sex], "
        "Patient_Age = [Patient_Age], Patient_Email = '[Patient_Email]', CBJ_Reci_Tel = '[CBJ_Reci_Tel]', CBJ_Reci_Cell = '[CBJ_Reci_Cell]', "
        "CBJ_Reci_Zip = '[CBJ_Reci_Zip]', CBJ_Reci_Address = '[CBJ_Reci_Address]', CBJ_BesongMsg = '[CBJ_BesongMsg]', "
        "CBJ_BesongMethod = [CBJ_BesongMethod], CBJ_Reci_Date = '[CBJ_Reci_Date]', "
        "CBJ_Send_Hospital = '[CBJ_Send_Hospital]', CBJ_Send_Name = '[CBJ_Send_Name]', CBJ_Send_Tel = '[CBJ_Send_Tel]', "
        "CBJ_Send_Cell = '[CBJ_Send_Cell]', CBJ_Send_Zip = '[CBJ_Send_Zip]', CBJ_Send_Address = '[CBJ_Send_Address]', "
        "CBJ_Msg = '[CBJ_Msg]'");
    if (row.costChanged) {
        statement.add(", CBJ_BesongCost = [CBJ_BesongCost] ").add(", CBJ_ElseCost = [CBJ_ElseCost] ");
    }
    statement.add("WHERE CBJ_PK = [CBJPK]");
    // The key first: what a doctor types may look like its placeholder.
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
    if (row.costChanged) {
        statement.fill("[CBJ_BesongCost]", row.CBJ_BesongCost).fill("[CBJ_ElseCost]", row.CBJ_ElseCost);
    }
    execute(Conn, statement);
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

void updateSheet(Connection& Conn, const CBJmUpdate& row) {
    execute(Conn, Statement("UPDATE t_EatGuide "
                            "SET BogYak = '[BogYak]', HospName = '[HospName]', PhoneNo = '[PhoneNo]' "
                            "WHERE CBJ_PK = [CBJPK]")
                      .fill("[CBJPK]", row.CBJ_PK)
                      .fill("[BogYak]", row.BogYak)
                      .fill("[HospName]", row.HospName)
                      .fill("[PhoneNo]", row.PhoneNo));
}

/// The order's mileage becomes what it earns now. False when a row that it needs can't be written.
bool updateMileage(clsZELVORecordSet& records, Connection& Conn, const CBJmUpdate& row) {
    const bool booked = running::readRow(
        Conn, Statement("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = [CBJPK] ").fill("[CBJPK]", row.CBJ_PK),
        [](const RecordSet&) {});
    if (booked) {
        execute(Conn, Statement("UPDATE t_Stock SET STK_Money = [MileageCost] WHERE CBJ_PK = [CBJPK]")
                          .fill("[MileageCost]", row.mileageMoney)
                          .fill("[CBJPK]", row.CBJ_PK));
        return true;
    }
    if (row.mileageMoney <= 0) return true;
    const std::string time = records.RecordSet_SvrGetdate(Conn);
    if (time == "-1") return false;
    return records.Insert_ChubangJun_Mileage(Conn, row.DTR_PK, row.CBJ_PK, row.mileageMoney,
                                             basics::formatDateTime(time)) != -1;
}

}  // namespace

bool clsZELVORecordSet::Update_ChubangJun(Connection& Conn, const CBJmUpdate& row) {
    return running::flag([&] {
        Transaction transaction(Conn, orderTurn(row.CBJ_PK));
        updateOrder(Conn, row);
        bool result = true;
        if (row.costChanged) {
            updateCostNotes(Conn, row);
            result = updateMileage(*this, Conn, row);
        }
        updateSheet(Conn, row);
        return result && transaction.commit() == CommitOutcome::Done;
    });
}

bool clsZELVORecordSet::Update_CBJCancel(Connection& Conn, std::int32_t CBJ_PK) {
    return running::flag([&] {
        Transaction transaction(Conn, orderTurn(CBJ_PK));
        execute(Conn, Statement("UPDATE t_ChubangJun SET CBJ_IsCanceled = 1 "
                                " WHERE CBJ_PK = [CBJPK]")
                          .fill("[CBJPK]", CBJ_PK));
        execute(Conn, Statement("UPDATE t_Stock SET CBJ_IsCanceled = 1 "
                                " WHERE CBJ_PK = [CBJPK]")
                          .fill("[CBJPK]", CBJ_PK));
        const CommitOutcome outcome = transaction.commit();
        if (outcome != CommitOutcome::Unknown) return outcome == CommitOutcome::Done;
        return askAnother(Conn, [&](Connection& other) { return orderIsCanceled(other, CBJ_PK); }) == true;
    });
}

}  // namespace zelvo::data
