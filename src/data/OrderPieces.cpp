#include <algorithm>
#include <utility>
#include <vector>

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

namespace {

/// A flag as text whatever its column was declared with; NULL is "".
std::string flagText(const RecordSet& row, std::string_view field) {
    if (row.isNull(field)) return {};
    return running::isTrue(row.text(field)) ? "True" : "False";
}

/// Reads the one row of an order; no row is no failure.
template <class Take>
bool readOrder(Connection& Conn, std::int32_t CBJ_PK, const char* text, Take&& take,
               Connection::From from = Connection::From::current()) {
    return running::flag([&] {
        running::readRow(Conn, Statement(text).fill("[CBJ_PK]", CBJ_PK), take, from);
        return true;
    });
}

/// The add-ons whose place in the slot text holds a "1", whatever else stands there, and how many those are.
std::string addOnCondition(std::string_view slots, std::size_t& chosen) {
    std::string condition;
    std::int64_t place = 0;
    for (std::size_t at = 0; at < slots.size();) {
        const char32_t mark = basics::characterAt(slots, at);
        at += basics::toUtf8(mark).size();
        ++place;
        if (mark != U'1') continue;
        ++chosen;
        condition +=
            (condition.empty() ? "WHERE TJAL_Slot = " : " OR TJAL_Slot = ") + basics::decimalText(place);
    }
    return condition.empty() ? "WHERE TJAL_Slot = -1" : condition;
}

void readAddOns(Connection& Conn, std::string_view slots, CBJmTangJun& decoction) {
    RecordSet own;
    std::size_t chosen = 0;
    Conn.open(
        own,
        basics::replaceAll("SELECT TJAL_Prompt,TJAL_PK FROM t_TangJunAddList [WHERE] ORDER BY TJAL_Order",
                           "[WHERE]", addOnCondition(slots, chosen)),
        Cursor::Static);
    std::string adds;
    for (; !own.atEnd(); own.moveNext()) {
        Conn.yield();
        if (!adds.empty()) adds += "#*#";
        adds += own.text("TJAL_Prompt") + "/*/" + own.text("TJAL_PK");
    }
    decoction.Adds += adds;
    if (chosen > own.rowCount()) decoction.lostAdds = chosen - own.rowCount();
}

/// What tells the lines of an order apart: the key of each, or all of it where the database has given none.
std::vector<std::string> lineMarks(const RecordSet& lines) {
    std::vector<std::string> marks;
    marks.reserve(lines.rowCount());
    for (std::size_t row = 0; row < lines.rowCount(); ++row) {
        const auto cell = [&](const char* field) { return lines.cellText(row, lines.columnOf(field)); };
        std::string mark = cell("DET_PK");
        if (mark.empty()) {
            for (const char* field : {"DGL_PK", "DET_Weight", "DET_Danga", "DET_Money", "DET_Note"})
                mark += "\n" + cell(field);
        }
        marks.push_back(std::move(mark));
    }
    return marks;
}

/// The lines come as the server joined them with the catalogue; their places are known to their table, and
/// so are those that the catalogue has left behind.
void arrangeHerbs(Connection& Conn, RecordSet& Rs, std::int32_t CBJ_PK, std::vector<LostHerb>& lost) {
    RecordSet lines;
    Conn.open(lines,
              Statement("SELECT DET_PK, DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note "
                        "FROM t_CBJDetail WHERE CBJ_PK = [CBJ_PK] ORDER BY DET_Order, DET_PK")
                  .fill("[CBJ_PK]", CBJ_PK)
                  .text(),
              Cursor::Static);
    if (Rs.columnCount() == 0) return;  // rehearsed, so that the question goes along with the others
    const std::vector<std::string> joined = lineMarks(Rs), stored = lineMarks(lines);
    std::vector<std::size_t> ranks;
    ranks.reserve(joined.size());
    for (const std::string& mark : joined) {
        ranks.push_back(
            static_cast<std::size_t>(std::find(stored.begin(), stored.end(), mark) - stored.begin()));
    }
    for (const std::string& mark : stored) {
        if (std::find(joined.begin(), joined.end(), mark) == joined.end())
            lost.push_back({lines.text("DGL_CallSign"), lines.text("DET_Weight")});
        lines.moveNext();
    }
    Rs.arrange(ranks);
}

void takeCosts(const RecordSet& row, CBJmCosts& costs) {
    const auto take = [&row](std::int32_t& amount, const char* column, std::string& note,
                             const char* noteColumn) {
        amount = running::int32Of(row, column);
        note = row.text(noteColumn);
    };
    CostNotes& notes = costs.notes;
    take(costs.CBJ_JojeCost, "CBJ_JojeCost", notes.CCD_JojeCost, "CCD_JojeCost");
    take(costs.CBJ_DrugCost, "CBJ_DrugCost", notes.CCD_DrugCost, "CCD_DrugCost");
    take(costs.CBJ_TJMLCost, "CBJ_TJMLCost", notes.CCD_TJMLcost, "CCD_TJMLcost");
    take(costs.CBJ_TJALCost, "CBJ_TJALCost", notes.CCD_TJALCost, "CCD_TJALCost");
    take(costs.CBJ_PouchCost, "CBJ_PouchCost", notes.CCD_PouchCost, "CCD_PouchCost");
    take(costs.CBJ_BoxCost, "CBJ_BoxCost", notes.CCD_BoxCost, "CCD_BoxCost");
    take(costs.CBJ_FormCost, "CBJ_FormCost", notes.CCD_FormCost, "CCD_FormCost");
    take(costs.CBJ_BesongCost, "CBJ_BesongCost", notes.CCD_BesongCost, "CCD_BesongCost");
    take(costs.CBJ_VATCost, "CBJ_VATCost", notes.CCD_VATCost, "CCD_VATCost");
    take(costs.CBJ_ElseCost, "CBJ_ElseCost", notes.CCD_ElseCost, "CCD_ElseCost");
    take(costs.CBJ_UserCost, "CBJ_UserCost", costs.CBJ_UserCostNote, "CBJ_UserCostNote");
    take(costs.CBJ_UserCostNoVAT, "CBJ_UserCostNoVAT", costs.CBJ_UserCostNoteNoVAT, "CBJ_UserCostNoteNoVAT");
}

}  // namespace

bool clsZELVORecordSet::RecordSet_CBJmStateInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmState& state) {
    return readOrder(Conn, CBJ_PK,
                     "SELECT CBJ_State, CBJ_IsPaid, CBJ_PayMethod, CBJ_Msg, CBJ_IsCanceled FROM t_ChubangJun "
                     "WHERE CBJ_PK = [CBJ_PK] ",
                     [&state](const RecordSet& row) {
                         state.CBJ_State = row.text("CBJ_State");
                         state.CBJ_IsPaid = flagText(row, "CBJ_IsPaid");
                         state.CBJ_PayMethod = row.text("CBJ_PayMethod");
                         state.CBJ_Msg = row.text("CBJ_Msg");
                         state.CBJ_IsCanceled = flagText(row, "CBJ_IsCanceled");
                     });
}

bool clsZELVORecordSet::RecordSet_CBJmPatientInfo(Connection& Conn, std::int32_t CBJ_PK,
                                                  CBJmPatient& patient) {
    return readOrder(
        Conn, CBJ_PK,
        "SELECT Patient_PK, Patient_Name, Patient_Jumin, Patient_Sex, Patient_Age, Patient_Email, CBJ_Reci_Tel, CBJ_Reci_Cell, "
        "CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_BesongMsg, CBJ_BesongMethod, CBJ_Reci_Date "
        "FROM t_ChubangJun "
        "WHERE CBJ_PK = [CBJ_PK] ",
        [&patient](const RecordSet& row) {
            patient.Patient_PK = row.text("Patient_PK");
            patient.Patient_Name = row.text("Patient_Name");
            patient.Patient_Jumin = row.text("Patient_Jumin");
            patient.Patient_Sex = flagText(row, "Patient_Sex");
            patient.Patient_Age = row.text("Patient_Age");
            patient.CBJ_Reci_Tel = row.text("CBJ_Reci_Tel");
            patient.CBJ_Reci_Cell = row.text("CBJ_Reci_Cell");
            patient.Patient_Email = row.text("Patient_Email");
            patient.CBJ_Reci_Zip = row.text("CBJ_Reci_Zip");
            patient.CBJ_Reci_Address = row.text("CBJ_Reci_Address");
            patient.CBJ_BesongMsg = row.text("CBJ_BesongMsg");
            patient.CBJ_BesongMethod = row.text("CBJ_BesongMethod");
            patient.CBJ_Reci_Date = row.text("CBJ_Reci_Date");
        });
}

bool clsZELVORecordSet::RecordSet_CBJmSendInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmSender& sender) {
    return readOrder(
        Conn, CBJ_PK,
        "SELECT CBJ_Send_Hospital, DTR_PK, CBJ_Send_Name, CBJ_Send_Cell, CBJ_Send_Tel, CBJ_Send_Zip, CBJ_Send_Address "
        "FROM t_ChubangJun "
        "WHERE CBJ_PK = [CBJ_PK] ",
        [&sender](const RecordSet& row) {
            sender.CBJ_Send_Hospital = row.text("CBJ_Send_Hospital");
            sender.DTR_PK = row.text("DTR_PK");
            sender.CBJ_Send_Name = row.text("CBJ_Send_Name");
            sender.CBJ_Send_Cell = row.text("CBJ_Send_Cell");
            sender.CBJ_Send_Tel = row.text("CBJ_Send_Tel");
            sender.CBJ_Send_Zip = row.text("CBJ_Send_Zip");
            sender.CBJ_Send_Address = row.text("CBJ_Send_Address");
        });
}

bool clsZELVORecordSet::RecordSet_CBJmEatGuide(Connection& Conn, std::int32_t CBJ_PK, CBJmEatGuide& sheet) {
    sheet.BogYak.clear();
    return readOrder(Conn, CBJ_PK,
                     "SELECT BogYak, HospName, PhoneNo  FROM t_EatGuide WHERE CBJ_PK = [CBJ_PK] ",
                     [&sheet](const RecordSet& row) {
                         sheet.BogYak = row.text("BogYak");
                         sheet.HospName = row.text("HospName");
                         sheet.PhoneNo = row.text("PhoneNo");
                     });
}

bool clsZELVORecordSet::RecordSet_CBJmJobListInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmJobList& type) {
    return readOrder(Conn, CBJ_PK,
                     "SELECT b.JL_PK, b.JL_Prompt, b.JL_Message "
                     "FROM t_ChubangJun a, t_JobList b "
                     "WHERE a.CBJ_PK = [CBJ_PK] AND a.CBJ_JobList_PK = b.JL_PK ",
                     [&type](const RecordSet& row) {
                         type.JL_PK = row.text("JL_PK");
                         type.JL_Prompt = row.text("JL_Prompt");
                         type.JL_Message = row.text("JL_Message");
                     });
}

bool clsZELVORecordSet::RecordSet_CBJmTangJunInfo(Connection& Conn, std::int32_t CBJ_PK,
                                                  CBJmTangJun& decoction) {
    return running::flag([&] {
        running::readRow(Conn,
                         Statement("SELECT b.TJML_PK, b.TJML_Prompt, b.TJML_Message, "
                                   "a.CBJ_DayTuyak, a.CBJ_Tuyakilsu, a.CBJ_PouchAmount, a.CBJ_PouchTotal "
                                   "FROM t_ChubangJun a, t_TangJunMethodList b "
                                   "WHERE a.CBJ_PK = [CBJ_PK] AND a.CBJ_TJML_PK = b.TJML_PK ")
                             .fill("[CBJ_PK]", CBJ_PK),
                         [&decoction](const RecordSet& row) {
                             decoction.TJML_PK = row.text("TJML_PK");
                             decoction.TJML_Prompt = row.text("TJML_Prompt");
                             decoction.TJML_Message = row.text("TJML_Message");
                             decoction.CBJ_DayTuyak = row.text("CBJ_DayTuyak");
                             decoction.CBJ_Tuyakilsu = row.text("CBJ_Tuyakilsu");
                             decoction.CBJ_PouchAmount = row.text("CBJ_PouchAmount");
                             decoction.CBJ_PouchTotal = row.text("CBJ_PouchTotal");
                         });
        std::string slots;
        running::readRow(Conn,
                         Statement("SELECT CBJ_TJAL_Slot FROM t_ChubangJun WHERE CBJ_PK = [CBJ_PK]")
                             .fill("[CBJ_PK]", CBJ_PK),
                         [&slots](const RecordSet& row) { slots = row.text("CBJ_TJAL_Slot"); });
        if (!slots.empty()) readAddOns(Conn, slots, decoction);
        return true;
    });
}

bool clsZELVORecordSet::RecordSet_CBJmTangJunAdd(Connection& Conn, const std::string& TJAL_PK,
                                                 std::string& TJAL_Prompt, std::string& TJAL_Message) {
    return running::flag([&] {
        running::readRow(
            Conn,
            Statement("SELECT TJAL_Prompt, TJAL_Message FROM t_TangJunAddList WHERE TJAL_PK = [TJAL_PK]")
                .fill("[TJAL_PK]", TJAL_PK),
            [&](const RecordSet& row) {
                TJAL_Prompt = row.text("TJAL_Prompt");
                TJAL_Message = row.text("TJAL_Message");
            });
        return true;
    });
}

bool clsZELVORecordSet::RecordSet_CBJmDrug(Connection& Conn, RecordSet& Rs, std::int32_t CBJ_PK,
                                           std::string& CBJ_Chubsu, std::string& CBJ_DrugCost,
                                           std::vector<LostHerb>& lost) {
    return running::flag([&] {
        Conn.open(Rs,
                  Statement("SELECT a.DET_PK as DET_PK, a.CBJ_PK as CBJ_PK, b.DGL_PK as DGL_PK, "
                            "b.DGL_CallSign as DGL_CallSign, b.DGL_Internal as DGL_Internal, "
                            "a.DET_Weight as DET_Weight, a.DET_Danga as DET_Danga, "
                            "a.DET_Money as DET_Money, a.DET_Note as DET_Note "
                            "FROM t_CBJDetail a, t_DrugList b "
                            "WHERE a.CBJ_PK = [CBJ_PK] AND a.DGL_PK = b.DGL_PK ")
                      .fill("[CBJ_PK]", CBJ_PK)
                      .text(),
                  Cursor::Keyset);
        arrangeHerbs(Conn, Rs, CBJ_PK, lost);
        running::readRow(
            Conn,
            Statement("SELECT CBJ_Chubsu, CBJ_DrugCost FROM t_ChubangJun WHERE CBJ_PK = [CBJ_PK]")
                .fill("[CBJ_PK]", CBJ_PK),
            [&](const RecordSet& row) {
                CBJ_Chubsu = row.text("CBJ_Chubsu");
                CBJ_DrugCost = row.text("CBJ_DrugCost");
            });
        return true;
    });
}

bool clsZELVORecordSet::RecordSet_CBJmCostInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmCosts& costs) {
    return readOrder(
        Conn, CBJ_PK,
        "SELECT a.CBJ_JojeCost, b.CCD_JojeCost, a.CBJ_DrugCost, b.CCD_DrugCost, a.CBJ_TJMLCost, b.CCD_TJMLcost, "
        "a.CBJ_TJALCost, b.CCD_TJALCost, a.CBJ_PouchCost, b.CCD_PouchCost, a.CBJ_BoxCost, b.CCD_BoxCost, "
        "a.CBJ_FormCost, b.CCD_FormCost, "
        "a.CBJ_BesongCost, b.CCD_BesongCost, a.CBJ_VATCost, b.CCD_VATCost, a.CBJ_ElseCost, b.CCD_ElseCost, "
        "a.CBJ_UserCost, a.CBJ_UserCostNoVAT, a.CBJ_UserCostNote, a.CBJ_UserCostNoteNoVAT "
        "FROM t_ChubangJun a, t_CBJcostDetail b "
        "WHERE a.CBJ_PK = [CBJ_PK] AND a.CBJ_PK = b.CBJ_PK ",
        [&costs](const RecordSet& row) { takeCosts(row, costs); });
}

}  // namespace zelvo::data
