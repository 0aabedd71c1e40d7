#include <optional>

#include "basics/Fault.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::execute;
using running::status;

namespace {

/// The condition of a search by name or by memo; any other kind takes all.
void addSearch(Statement& statement, SearchKind Kind, const std::string& Word) {
    if (Kind == searchName) statement.add(" AND UCB_Name LIKE '%[UCB_Name]%'").fill("[UCB_Name]", Word);
    if (Kind == searchMemo) statement.add(" AND UCB_Note LIKE '%[UCB_Note]%'").fill("[UCB_Note]", Word);
}

const UpdateTarget& prescriptions() {
    static const UpdateTarget target{"t_UserChubang", "UCB_PK"};
    return target;
}

const UpdateTarget& lines() {
    static const UpdateTarget target{"t_UserDetail", "UDET_PK"};
    return target;
}

}  // namespace

std::int32_t clsZELVORecordSet::Insert_MyChubang(Connection& Conn, std::int32_t DTR_PK,
                                                 const std::string& UCB_Name, const std::string& UCB_Note) {
    std::optional<std::int32_t> key;
    const std::int16_t inserted = status([&] {
        Statement statement(
            "Insert into t_UserChubang (DTR_PK, UCB_Name, UCB_Date, UCB_Note) "
            "Values ([DTR_PK], '[UCB_Name]', '[UCB_Date]', '[UCB_Note]')");
        statement.fill("[DTR_PK]", DTR_PK).fill("[UCB_Name]", UCB_Name);
        const std::string time = RecordSet_SvrGetdate(Conn);
        if (time == "-1") throw basics::Fault("the server does not tell its time");
        const std::string date = basics::formatDateTime(time);
        statement.fill("[UCB_Date]", date).fill("[UCB_Note]", UCB_Note);
        const Statement own = Statement("DTR_PK = [DTR_PK] AND UCB_Date = '[UCB_Date]'")
                                  .fill("[DTR_PK]", DTR_PK)
                                  .fill("[UCB_Date]", date);
        key = Conn.insert(statement.text(), {"t_UserChubang", "UCB_PK", own.text()});
    });
    if (inserted != 1) return -1;
    return key ? *key : RecordSet_MaxUCBPK(Conn);
}

std::int32_t clsZELVORecordSet::RecordSet_MaxUCBPK(Connection& Conn) {
    std::int32_t key = -1;
    status([&] {
        running::readRow(Conn, Statement("SELECT MAX(UCB_PK) AS UCBPK FROM t_UserChubang"),
                         [&](const RecordSet& row) { key = running::int32Of(row, "UCBPK"); });
    });
    return key;
}

std::int16_t clsZELVORecordSet::Insert_MyChubangDetail(Connection& Conn, std::int32_t UCB_PK,
                                                       const UserHerbLine& line) {
    return status([&] {
        execute(Conn, Statement("Insert into t_UserDetail "
                                "(UCB_PK, DGL_CallSign, DGL_PK, UDET_Weight, UDET_Order, UDET_Note) "
                                "Values ([UCB_PK], '[DGL_CallSign]', [DGL_PK], [UDET_Weight], [UDET_Order], "
                                "'[UDET_Note]')")
                          .fill("[UCB_PK]", UCB_PK)
                          .fill("[DGL_CallSign]", line.DGL_CallSign)
                          .fill("[DGL_PK]", line.DGL_PK)
                          .fill("[UDET_Weight]", line.UDET_Weight)
                          .fill("[UDET_Order]", line.UDET_Order)
                          .fill("[UDET_Note]", line.UDET_Note));
    });
}

std::int16_t clsZELVORecordSet::Delete_MyChubangDetail(Connection& Conn, std::int32_t UCB_PK) {
    return status([&] {
        execute(Conn, Statement("Delete From t_UserDetail "
                                "Where UCB_PK = [UCB_PK]")
                          .fill("[UCB_PK]", UCB_PK));
    });
}

std::int16_t clsZELVORecordSet::RecordSet_MyChubang(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK) {
    return status([&] {
        const Statement statement = Statement(
                                        "SELECT * FROM t_UserChubang "
                                        "Where DTR_PK = [DTR_PK] "
                                        " Order By UCB_Name")
                                        .fill("[DTR_PK]", DTR_PK);
        Conn.open(Rs, statement.text(), Cursor::Keyset, prescriptions());
    });
}

std::int16_t clsZELVORecordSet::RecordSet_MyDrugList(Connection& Conn, RecordSet& Rs, std::int32_t UCB_PK) {
    return status([&] {
        const Statement statement =
            Statement(
                "SELECT a.UDET_PK, a.UCB_PK, a.DGL_CallSign, b.DGL_PK, b.DGL_Internal,"
                " a. UDET_Weight, a.UDET_Order, a.UDET_Note"
                " FROM t_UserDetail a, t_DrugList b "
                " Where a.UCB_PK = [UCB_PK] "
                " And a.DGL_PK = b.DGL_Pk "
                " Order by a.UDET_Order ")
                .fill("[UCB_PK]", UCB_PK);
        Conn.open(Rs, statement.text(), Cursor::Keyset, lines());
    });
}

std::int16_t clsZELVORecordSet::RecordSet_LostDrugs(Connection& Conn, std::int32_t UCB_PK,
                                                    std::vector<LostHerb>& lost) {
    return status([&] {
        RecordSet lines;
        Conn.open(
            lines,
            Statement("SELECT a.DGL_CallSign, a.UDET_Weight FROM t_UserDetail a WHERE a.UCB_PK = [UCB_PK] "
                      "AND NOT EXISTS (SELECT 1 FROM t_DrugList b WHERE b.DGL_PK = a.DGL_PK) "
                      "ORDER BY a.UDET_Order")
                .fill("[UCB_PK]", UCB_PK)
                .text(),
            Cursor::Static);
        for (; !lines.atEnd(); lines.moveNext()) lost.push_back({lines.text(0), lines.text(1)});
    });
}

std::int16_t clsZELVORecordSet::RecordSet_FindMyChubang(Connection& Conn, RecordSet& Rs,
                                                        const std::string& Word, std::int32_t DTR_PK,
                                                        SearchKind Kind) {
    return status([&] {
        Statement statement(
            "SELECT * FROM t_UserChubang "
            " WHERE DTR_PK = [DTR_PK]");
        statement.fill("[DTR_PK]", DTR_PK);
        addSearch(statement, Kind, Word);
        Conn.open(Rs, statement.text(), Cursor::Keyset, prescriptions());
    });
}

std::int16_t clsZELVORecordSet::RecordSet_FindYakGukChubang(Connection& Conn, RecordSet& Rs,
                                                            const std::string& Word, SearchKind Kind) {
    return status([&] {
        Statement statement(
            "SELECT * FROM t_UserChubang "
            " WHERE DTR_PK = 0");
        addSearch(statement, Kind, Word);
        Conn.open(Rs, statement.text(), Cursor::Keyset, prescriptions());
    });
}

}  // namespace zelvo::data
