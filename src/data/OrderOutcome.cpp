#include "data/OrderOutcome.h"

#include <exception>

#include "data/Running.h"

namespace zelvo::data {

std::optional<bool> rowStands(Connection& Conn, const Statement& statement, std::string_view turn,
                              Connection::From from) {
    std::optional<bool> stands;
    running::status([&] {
        const Transaction waiting(Conn, turn, {}, from);
        stands = running::readRow(
            Conn, statement, [](const RecordSet&) {}, from);
    });
    return stands;
}

std::string newOrdersTurn(std::int32_t DTR_PK) {
    return "zelvo doctor " + basics::decimalText(std::int64_t{DTR_PK});
}

std::string orderTurn(std::int32_t CBJ_PK) {
    return "zelvo order " + basics::decimalText(std::int64_t{CBJ_PK});
}

// A server that keeps versions of rows would answer from the last one committed, and a send that is just
// being committed would seem not to stand: the turn keeps the answer back, and the hint where there is none.
std::optional<bool> orderStands(Connection& Conn, std::int32_t DTR_PK, std::int32_t CBJ_PK,
                                const std::string& CBJ_RegDate) {
    return rowStands(
        Conn,
        Statement("SELECT CBJ_PK FROM t_ChubangJun WITH (READCOMMITTEDLOCK) "
                  "WHERE CBJ_PK = [CBJ_PK] AND DTR_PK = [DTR_PK] AND CBJ_RegDate = '[CBJ_RegDate]'")
            .fill("[CBJ_PK]", CBJ_PK)
            .fill("[DTR_PK]", DTR_PK)
            .fill("[CBJ_RegDate]", CBJ_RegDate),
        newOrdersTurn(DTR_PK));
}

std::optional<bool> orderIsCanceled(Connection& Conn, std::int32_t CBJ_PK) {
    return rowStands(Conn,
                     Statement("SELECT CBJ_PK FROM t_ChubangJun WITH (READCOMMITTEDLOCK) "
                               "WHERE CBJ_PK = [CBJ_PK] AND CBJ_IsCanceled = 1")
                         .fill("[CBJ_PK]", CBJ_PK),
                     orderTurn(CBJ_PK));
}

std::optional<bool> askAnother(const Connection& broken,
                               const std::function<std::optional<bool>(Connection& Conn)>& question) {
    try {
        if (broken.another) return question(*broken.another());
    } catch (const std::exception&) {
        // The server can't be reached at all.
    }
    return std::nullopt;
}

CommitOutcome outcomeOf(std::optional<bool> stands) {
    if (!stands) return CommitOutcome::Unknown;
    return *stands ? CommitOutcome::Done : CommitOutcome::Refused;
}

}  // namespace zelvo::data
