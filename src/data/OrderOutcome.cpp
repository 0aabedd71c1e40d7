#include "data/OrderOutcome.h"

#include "data/Running.h"

namespace zelvo::data {

std::optional<bool> orderStands(Connection& Conn, std::int32_t DTR_PK, const std::string& CBJ_RegDate) {
    std::optional<bool> stands;
    running::status([&] {
        stands = running::readRow(Conn,
                                  Statement("SELECT CBJ_PK FROM t_ChubangJun "
                                            "WHERE DTR_PK = [DTR_PK] "
                                            "AND convert(varchar(19),CBJ_RegDate,120) = '[CBJ_RegDate]'")
                                      .fill("[DTR_PK]", DTR_PK)
                                      .fill("[CBJ_RegDate]", CBJ_RegDate),
                                  [](const RecordSet&) {});
    });
    return stands;
}

}  // namespace zelvo::data
