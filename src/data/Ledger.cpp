#include "data/Running.h"
#include "data/Words.h"
#include "data/clsZELVORecordSet.h"
#include "data/clsZELVOStockmoney.h"

namespace zelvo::data {

namespace {

/// Reads the one row of a sum; no row and NULL are 0. What does not fit into 32 bits is a failure, not a
/// wrong balance.
bool readSum(Connection& Conn, const Statement& statement, std::int32_t& Sum,
             Connection::From from = Connection::From::current()) {
    Sum = 0;
    return running::flag([&] {
        running::readRow(
            Conn, statement,
            [&](const RecordSet& row) {
                if (!row.isNull(0)) Sum = basics::toInt32(row.text(0));
            },
            from);
        return true;
    });
}

std::int16_t openLedger(Connection& Conn, RecordSet& Rs, Statement& statement, std::int32_t DTR_PK,
                        const std::string& sDate, const std::string& eDate,
                        Connection::From from = Connection::From::current()) {
    return running::status([&] {
        statement.fill("[DTR_PK]", DTR_PK).fill("[sDate]", sDate).fill("[eDate]", eDate);
        Conn.open(Rs, statement.text(), Cursor::Static, {}, from);
    });
}

constexpr std::string_view orderDates =
    "AND LEFT(convert(varchar(10),CBJ_RegDate,120),10) >= '[sDate]' "
    "AND LEFT(convert(varchar(10),CBJ_RegDate,120),10) <= '[eDate]' ";
constexpr std::string_view stockDates =
    "AND LEFT(convert(varchar(10),STK_Date,120),10) >= '[sDate]' "
    "AND LEFT(convert(varchar(10),STK_Date,120),10) <= '[eDate]' ";

}  // namespace

bool clsZELVOStockmoney::ZELVO_StockMoney(Connection& Conn, std::int32_t& Sum, std::int32_t DTR_PK,
                                          const std::string& Kind, const std::string& sDate,
                                          const std::string& eDate) {
    Statement statement("SELECT SUM(STK_Money) as STKsum FROM t_Stock WHERE DTR_PK = [Doctor_PK] ");
    if (Kind.empty()) statement.add("AND CBJ_IsCanceled = 0 ");
    if (Kind == "S") statement.add("AND CBJ_PK = 0 ");
    if (Kind == "M") statement.add("AND CBJ_PK <> 0 ").add("AND CBJ_IsCanceled = 0 ");
    if (!sDate.empty()) {
        statement.add("AND LEFT(convert(varchar(10),STK_Date,120),10) >= '[StartDate]' ");
        if (!eDate.empty()) statement.add("AND LEFT(convert(varchar(10),STK_Date,120),10) <= '[EndDate]' ");
    }
    statement.fill("[Doctor_PK]", DTR_PK).fill("[StartDate]", sDate).fill("[EndDate]", eDate);
    return readSum(Conn, statement, Sum);
}

bool clsZELVOStockmoney::ZELVO_CBJcostSum(Connection& Conn, std::int32_t& Sum, std::int32_t DTR_PK,
                                          const std::string& PayWord, const std::string& IsPaied,
                                          const std::string& sDate, const std::string& eDate) {
    Sum = 0;
    Statement statement(
        "SELECT SUM(CBJ_JojeCost+CBJ_DrugCost+CBJ_TJMLCost+CBJ_TJALCost+CBJ_PouchCost+CBJ_BoxCost+CBJ_FormCost+"
        "CBJ_BesongCost+CBJ_VATCost+CBJ_ElseCost+CBJ_UserCost+CBJ_UserCostNoVAT) as CBJsum "
        "FROM t_ChubangJun WHERE DTR_PK = [Doctor_PK] "
        "AND CBJ_IsCanceled = 0 ");
    if (PayWord == pay::deposit) statement.add("AND CBJ_PayMethod = 1 ");
    if (PayWord == pay::later) statement.add("AND CBJ_PayMethod = 2 ");
    if (PayWord == pay::settled) statement.add("AND CBJ_PayMethod = 3 ");
    if (!sDate.empty()) {
        statement.add("AND LEFT(convert(varchar(10),CBJ_RegDate,120),10) >= '[StartDate]' ");
        if (!eDate.empty())
            statement.add("AND LEFT(convert(varchar(10),CBJ_RegDate,120),10) <= '[EndDate]' ");
    }
    if (!IsPaied.empty()) statement.add("AND CBJ_IsPaid = [IsPaied] ");
    const bool filled = running::flag([&] {
        statement.fill("[Doctor_PK]", DTR_PK)
            .fill("[StartDate]", sDate)
            .fill("[EndDate]", eDate)
            .fill("[IsPaied]", IsPaied);
        return true;
    });
    return filled && readSum(Conn, statement, Sum);
}

std::int16_t clsZELVORecordSet::RecordSet_StockMoneyIN(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                                       const std::string& sDate, const std::string& eDate) {
    Statement statement(
        "SELECT STK_Date, STK_Money "
        "FROM t_Stock "
        "WHERE DTR_PK = [DTR_PK] "
        "AND CBJ_PK = 0 ");
    if (!sDate.empty()) statement.add(stockDates);
    statement.add("ORDER BY STK_Date DESC ");
    return openLedger(Conn, Rs, statement, DTR_PK, sDate, eDate);
}

std::int16_t clsZELVORecordSet::RecordSet_StockMoneyUsed(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                                         const std::string& sDate, const std::string& eDate) {
    Statement statement(
        "SELECT CBJ_RegDate, SUM(CBJ_JojeCost+CBJ_DrugCost+CBJ_TJMLCost+CBJ_TJALCost+"
        "CBJ_PouchCost+CBJ_BoxCost+CBJ_FormCost+CBJ_BesongCost+CBJ_VATCost+"
        "CBJ_ElseCost+CBJ_UserCost+CBJ_UserCostNoVAT) as CBJ_SumCost "
        "FROM t_ChubangJun "
        "WHERE DTR_PK = [DTR_PK] "
        "AND CBJ_PayMethod = 1 AND CBJ_IsPaid = 1 AND CBJ_IsCanceled = 0 ");
    if (!sDate.empty()) statement.add(orderDates);
    statement.add("GROUP BY CBJ_RegDate ").add("ORDER BY CBJ_RegDate DESC ");
    return openLedger(Conn, Rs, statement, DTR_PK, sDate, eDate);
}

std::int16_t clsZELVORecordSet::RecordSet_StockMileage(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                                       const std::string& sDate, const std::string& eDate) {
    Statement statement(
        "SELECT STK_Date, STK_Money "
        "FROM t_Stock "
        "WHERE DTR_PK = [DTR_PK] "
        "AND CBJ_PK <> 0 AND CBJ_IsCanceled = 0 ");
    if (!sDate.empty()) statement.add(stockDates);
    statement.add("ORDER BY STK_Date DESC ");
    return openLedger(Conn, Rs, statement, DTR_PK, sDate, eDate);
}

std::optional<std::int64_t> clsZELVOStockmoney::usable(Connection& Conn, std::int32_t DTR_PK) {
    std::int32_t deposits = 0, mileage = 0, used = 0;
    const auto readSums = [&](Connection& line) {
        return ZELVO_StockMoney(line, deposits, DTR_PK, "S", "", "") &&
               ZELVO_StockMoney(line, mileage, DTR_PK, "M", "", "") &&
               ZELVO_CBJcostSum(line, used, DTR_PK, std::string(pay::deposit), "", "", "");
    };
    const ReadAhead ahead(Conn, readSums);
    if (!readSums(Conn)) return std::nullopt;
    return std::int64_t{deposits} - used + mileage;
}

}  // namespace zelvo::data
