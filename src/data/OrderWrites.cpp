#include <optional>

#include "basics/Dates.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::execute;
using running::status;

namespace {

void fillPatientAndCosts(Statement& statement, const ChubangJun& row) {
    statement.fill("[DTR_PK]", row.DTR_PK)
        .fill("[Patient_PK]", row.Patient_PK)
        .fill("[Patient_Name]", row.Patient_Name)
        .fill("[Patient_Age]", row.Patient_Age)
        .fill("[Patient_Sex]", row.Patient_Sex)
        .fill("[Patient_Jumin]", row.Patient_Jumin)
        .fill("[Patient_Email]", row.Patient_Email)
        .fill("[CBJ_IsCanceled]", row.CBJ_IsCanceled)
        .fill("[CBJ_IsPaid]", row.CBJ_IsPaid)
        .fill("[CBJ_JobList_PK]", row.CBJ_JobList_PK)
        .fill("[CBJ_TJML_PK]", row.CBJ_TJML_PK)
        .fill("[CBJ_TJAL_Slot]", row.CBJ_TJAL_Slot)
        .fill("[CBJ_JojeCost]", row.CBJ_JojeCost)
        .fill("[CBJ_DrugCost]", row.CBJ_DrugCost)
        .fill("[CBJ_TJMLCost]", row.CBJ_TJMLCost)
        .fill("[CBJ_TJALCost]", row.CBJ_TJALCost)
        .fill("[CBJ_PouchCost]", row.CBJ_PouchCost)
        .fill("[CBJ_BoxCost]", row.CBJ_BoxCost)
        .fill("[CBJ_FormCost]", row.CBJ_FormCost)
        .fill("[CBJ_BesongCost]", row.CBJ_BesongCost)
        .fill("[CBJ_VATCost]", row.CBJ_VATCost)
        .fill("[CBJ_ElseCost]", row.CBJ_ElseCost);
}

void fillDoseAndDelivery(Statement& statement, const ChubangJun& row) {
    statement.fill("[CBJ_Chubsu]", row.CBJ_Chubsu)
        .fill("[CBJ_PouchAmount]", row.CBJ_PouchAmount)
        .fill("[CBJ_PouchTotal]", row.CBJ_PouchTotal)
        .fill("[CBJ_DayTuyak]", row.CBJ_DayTuyak)
        .fill("[CBJ_Tuyakilsu]", row.CBJ_Tuyakilsu)
        .fill("[CBJ_BesongMethod]", row.CBJ_BesongMethod)
        .fill("[CBJ_PayMethod]", row.CBJ_PayMethod)
        .fill("[CBJ_Send_Name]", row.CBJ_Send_Name)
        .fill("[CBJ_Send_Zip]", row.CBJ_Send_Zip)
        .fill("[CBJ_Send_Address]", row.CBJ_Send_Address)
        .fill("[CBJ_Send_Tel]", row.CBJ_Send_Tel)
        .fill("[CBJ_Send_Cell]", row.CBJ_Send_Cell)
        .fill("[CBJ_Send_Hospital]", row.CBJ_Send_Hospital)
        .fill("[CBJ_Reci_Zip]", row.CBJ_Reci_Zip)
        .fill("[CBJ_Reci_Address]", row.CBJ_Reci_Address)
        .fill("[CBJ_Reci_Tel]", row.CBJ_Reci_Tel)
        .fill("[CBJ_Reci_Cell]", row.CBJ_Reci_Cell)
        .fill("[CBJ_Reci_Date]", row.CBJ_Reci_Date)
        .fill("[CBJ_BesongMsg]", row.CBJ_BesongMsg)
        .fill("[CBJ_Msg]", row.CBJ_Msg)
        .fill("[CBJ_RegDate]", basics::formatDateTime(row.CBJ_RegDate))
        .fill("[CBJ_State]", row.CBJ_State);
}

/// The columns that belong to the pharmacy start at 0 and "".
void fillPharmacyColumns(Statement& statement) {
    for (const char* amount : {"[CBJ_UserCost]", "[CBJ_UserCostNoVAT]"}) statement.fill(amount, 0);
    for (const char* note : {"[CBJ_UserCostNote]", "[CBJ_UserCostNoteNoVAT]"}) statement.fill(note, "");
    for (const char* mark : {"[CBJ_UserChk1]", "[CBJ_UserChk2]"}) statement.fill(mark, 0);
    for (const char* text :
         {"[CBJ_UserMemo1]", "[CBJ_UserMemo2]", "[CBJ_JojeCompounder]", "[CBJ_ChubangName]"}) {
        statement.fill(text, "");
    }
}

/// What tells an order from any other beside its key.
Statement isOwnRow(const ChubangJun& row) {
    return Statement("DTR_PK = [DTR_PK] AND CBJ_RegDate = '[CBJ_RegDate]'")
        .fill("[DTR_PK]", row.DTR_PK)
        .fill("[CBJ_RegDate]", basics::formatDateTime(row.CBJ_RegDate));
}

}  // namespace

std::int32_t clsZELVORecordSet::Insert_ChubangJun(Connection& Conn, const ChubangJun& row) {
    std::optional<std::int32_t> key;
    const std::int16_t inserted = status([&] {
        Statement statement(
            "Insert into t_ChubangJun "
            "(DTR_PK, Patient_PK, Patient_Name, Patient_Age, Patient_Sex, Patient_Jumin, Patient_Email, "
            "CBJ_IsCanceled, CBJ_IsPaid, CBJ_JobList_PK, CBJ_TJML_PK, CBJ_TJAL_Slot, "
            "CBJ_JojeCost, CBJ_DrugCost, CBJ_TJMLCost, CBJ_TJALCost, CBJ_PouchCost, "
            "CBJ_BoxCost, CBJ_FormCost, CBJ_BesongCost, CBJ_VATCost, CBJ_ElseCost, CBJ_Chubsu, "
            "CBJ_PouchAmount, CBJ_PouchTotal, CBJ_DayTuyak, CBJ_Tuyakilsu, CBJ_BesongMethod, CBJ_PayMethod, "
            "CBJ_Send_Name, CBJ_Send_Zip, CBJ_Send_Address, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Hospital, "
            "CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel, CBJ_Reci_Cell, CBJ_Reci_Date, CBJ_BesongMsg, "
            "CBJ_Msg, CBJ_RegDate, CBJ_State, CBJ_UserCost, CBJ_UserCostNoVAT, CBJ_UserCostNote, CBJ_UserCostNoteNoVAT, "
            "CBJ_UserChk1, CBJ_UserChk2, "
            "CBJ_UserMemo1, CBJ_UserMemo2, CBJ_JojeCompounder, CBJ_ChubangName) "
            "Values ([DTR_PK], [Patient_PK], '[Patient_Name]', [Patient_Age], [Patient_Sex], '[Patient_Jumin]', '[Patient_Email]', "
            "[CBJ_IsCanceled], [CBJ_IsPaid], [CBJ_JobList_PK], [CBJ_TJML_PK], '[CBJ_TJAL_Slot]', "
            "[CBJ_JojeCost], [CBJ_DrugCost], [CBJ_TJMLCost], [CBJ_TJALCost], [CBJ_PouchCost], "
            "[CBJ_BoxCost], [CBJ_FormCost], [CBJ_BesongCost], [CBJ_VATCost], [CBJ_ElseCost], [CBJ_Chubsu], "
            "[CBJ_PouchAmount], [CBJ_PouchTotal], [CBJ_DayTuyak], [CBJ_Tuyakilsu], [CBJ_BesongMethod], [CBJ_PayMethod], "
            "'[CBJ_Send_Name]', '[CBJ_Send_Zip]', '[CBJ_Send_Address]', '[CBJ_Send_Tel]', '[CBJ_Send_Cell]', '[CBJ_Send_Hospital]', "
            "'[CBJ_Reci_Zip]', '[CBJ_Reci_Address]', '[CBJ_Reci_Tel]', '[CBJ_Reci_Cell]', '[CBJ_Reci_Date]', '[CBJ_BesongMsg]', "
            "'[CBJ_Msg]', '[CBJ_RegDate]', [CBJ_State], [CBJ_UserCost], [CBJ_UserCostNoVAT], "
            "'[CBJ_UserCostNote]', '[CBJ_UserCostNoteNoVAT]', [CBJ_UserChk1], [CBJ_UserChk2], "
            "'[CBJ_UserMemo1]', '[CBJ_UserMemo2]', '[CBJ_JojeCompounder]', '[CBJ_ChubangName]')");
        fillPatientAndCosts(statement, row);
        fillDoseAndDelivery(statement, row);
        fillPharmacyColumns(statement);
        key = Conn.insert(statement.text(), {"t_ChubangJun", "CBJ_PK", isOwnRow(row).text()});
    });
    if (inserted != 1) return -1;
    return key ? *key : ownMaxCBJPK(Conn, row);
}

/// The highest key, where it is that of the doctor's order of this second; else -1: another clinic's row must
/// not get this order's herbs.
std::int32_t clsZELVORecordSet::ownMaxCBJPK(Connection& Conn, const ChubangJun& row) {
    const std::int32_t key = RecordSet_MaxCBJPK(Conn);
    const bool own = key != -1 && running::flag([&] {
                         Statement question("SELECT CBJ_PK FROM t_ChubangJun WHERE CBJ_PK = [CBJ_PK] AND ");
                         question.fill("[CBJ_PK]", key).add(isOwnRow(row).text());
                         return running::readRow(Conn, question, [](const RecordSet&) {});
                     });
    return own ? key : -1;
}

std::int32_t clsZELVORecordSet::RecordSet_MaxCBJPK(Connection& Conn) {
    std::int32_t key = -1;
    status([&] {
        running::readRow(Conn, Statement("SELECT MAX(CBJ_PK) AS CBJPK FROM t_ChubangJun"),
                         [&](const RecordSet& row) { key = running::int32Of(row, "CBJPK"); });
    });
    return key;
}

std::int16_t clsZELVORecordSet::Insert_ChubangJun_CostDetail(Connection& Conn, std::int32_t CBJ_PK,
                                                             const CostNotes& notes) {
    return status([&] {
        execute(
            Conn,
            Statement(
                "Insert into t_CBJcostDetail "
                "(CBJ_PK, CCD_JojeCost, CCD_DrugCost, CCD_TJMLcost, CCD_TJALCost, CCD_PouchCost, "
                "CCD_BoxCost, CCD_FormCost, CCD_BesongCost, CCD_VATCost, CCD_ElseCost) "
                "Values ([CBJ_PK], '[CCD_JojeCost]', '[CCD_DrugCost]', '[CCD_TJMLcost]', '[CCD_TJALCost]', "
                "'[CCD_PouchCost]', '[CCD_BoxCost]', '[CCD_FormCost]', '[CCD_BesongCost]', '[CCD_VATCost]', '[CCD_ElseCost]')")
                .fill("[CBJ_PK]", CBJ_PK)
                .fill("[CCD_JojeCost]", notes.CCD_JojeCost)
                .fill("[CCD_DrugCost]", notes.CCD_DrugCost)
                .fill("[CCD_TJMLcost]", notes.CCD_TJMLcost)
                .fill("[CCD_TJALCost]", notes.CCD_TJALCost)
                .fill("[CCD_PouchCost]", notes.CCD_PouchCost)
                .fill("[CCD_BoxCost]", notes.CCD_BoxCost)
                .fill("[CCD_FormCost]", notes.CCD_FormCost)
                .fill("[CCD_BesongCost]", notes.CCD_BesongCost)
                .fill("[CCD_VATCost]", notes.CCD_VATCost)
                .fill("[CCD_ElseCost]", notes.CCD_ElseCost));
    });
}

std::int16_t clsZELVORecordSet::Insert_ChubangJun_Detail(Connection& Conn, std::int32_t CBJ_PK,
                                                         const HerbLine& line) {
    return status([&] {
        execute(
            Conn,
            Statement("Insert into t_CBJDetail "
                      "(CBJ_PK, DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note, DET_Order) "
                      "Values ([CBJ_PK], [DGL_PK], '[DGL_CallSign]', [DET_Weight], [DET_Danga], "
                      "[DET_Money], '[DET_Note]', [DET_Order])")
                .fill("[CBJ_PK]", CBJ_PK)
                .fill("[DGL_PK]", line.DGL_PK)
                .fill("[DGL_CallSign]", line.DGL_CallSign)
                .fill("[DET_Weight]", line.DET_Weight)
                .fill("[DET_Danga]", line.DET_Danga)
                .fill("[DET_Money]", line.DET_Money)
                .fill("[DET_Note]", line.DET_Note)
                .fill("[DET_Order]", line.DET_Order));
    });
}

std::int16_t clsZELVORecordSet::Insert_ChubangJun_EatGuide(Connection& Conn, std::int32_t CBJ_PK,
                                                           const std::string& BogYak,
                                                           const std::string& HospName,
                                                           const std::string& PhoneNo) {
    return status([&] {
        execute(Conn, Statement("Insert into t_EatGuide "
                                "(CBJ_PK, BogYak, HospName, PhoneNo) "
                                "Values ([CBJ_PK], '[BogYak]', '[HospName]', '[PhoneNo]')")
                          .fill("[CBJ_PK]", CBJ_PK)
                          .fill("[BogYak]", BogYak)
                          .fill("[HospName]", HospName)
                          .fill("[PhoneNo]", PhoneNo));
    });
}

std::int16_t clsZELVORecordSet::Insert_ChubangJun_Mileage(Connection& Conn, std::int32_t DTR_PK,
                                                          std::int32_t CBJ_PK, std::int32_t STK_Money,
                                                          const std::string& STK_Date) {
    return status([&] {
        execute(
            Conn,
            Statement(
                "Insert into t_Stock "
                "(DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Method, STK_Date, STK_Note) "
                "Values ([DTR_PK], [CBJ_PK], [CBJ_IsCanceled], [STK_Money], [STK_Method], '[STK_Date]', '[STK_Note]')")
                .fill("[DTR_PK]", DTR_PK)
                .fill("[CBJ_PK]", CBJ_PK)
                .fill("[CBJ_IsCanceled]", 0)
                .fill("[STK_Money]", STK_Money)
                .fill("[STK_Method]", 0)
                .fill("[STK_Date]", STK_Date)
                .fill("[STK_Note]", "Mileage 금액"));
    });
}

}  // namespace zelvo::data
