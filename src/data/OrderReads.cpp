#include "basics/Text.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::Cell;

namespace {

using enum Cell::Content;

constexpr Cell searchCells[] = {
    {0, RunningNumber},         {1, Field, "CBJ_PK"},           {2, Field, "CBJ_RegDate"},
    {3, Field, "Patient_Name"}, {4, FirstSix, "Patient_Jumin"}, {5, Field, "JL_Prompt"},
    {6, Field, "DTR_Name"}};

/// What each kind of search adds.
std::string_view searchPieces(OrdersBy Kind) {
    using enum OrdersBy;
    switch (Kind) {
        case IssueDate:
            return "AND LEFT(convert(varchar(10),a.CBJ_RegDate,120),10) >= '[sDate]' "
                   "AND LEFT(convert(varchar(10),a.CBJ_RegDate,120),10) <= '[eDate]' "
                   "Order by a.CBJ_RegDate DESC ";
        case PatientName:
            return "AND a.Patient_Name like '%[Patient_Name]%' "
                   "Order by a.Patient_Jumin, a.CBJ_RegDate DESC ";
        case DoctorName:
            return "AND c.DTR_Name like '%[DTR_Name]%' "
                   "Order by c.DTR_Name, a.CBJ_RegDate DESC ";
        case Pending:
            return "AND a.CBJ_State = 0 "
                   "Order by a.CBJ_RegDate DESC ";
        case Making:
            return "AND a.CBJ_State = 1 "
                   "Order by a.CBJ_RegDate DESC ";
        case WaitingToGo:
            return "AND a.CBJ_State = 2 "
                   "Order by a.CBJ_RegDate DESC ";
        case Finished:
            return "AND a.CBJ_State = 3 "
                   "Order by a.CBJ_RegDate DESC ";
        case Unpaid:
            return "AND a.CBJ_IsPaid = 0 "
                   "Order by a.CBJ_RegDate DESC ";
        case Paid:
            return "AND a.CBJ_IsPaid = 1 "
                   "Order by a.CBJ_RegDate DESC ";
        case Deposit:
            return "AND a.CBJ_PayMethod = 1 "
                   "Order by a.CBJ_RegDate DESC ";
        case PaidLater:
            return "AND a.CBJ_PayMethod = 2 "
                   "Order by a.CBJ_RegDate DESC ";
        case Settled:
            return "AND a.CBJ_PayMethod = 3 "
                   "Order by a.CBJ_RegDate DESC ";
        case Undecided:
            return "AND a.CBJ_BesongMethod = 1 "
                   "Order by a.CBJ_RegDate DESC ";
        case Parcel:
            return "AND a.CBJ_BesongMethod = 2 "
                   "Order by a.CBJ_RegDate DESC ";
        case Courier:
            return "AND a.CBJ_BesongMethod = 3 "
                   "Order by a.CBJ_RegDate DESC ";
        case Clinic:
            return "AND a.CBJ_BesongMethod = 4 "
                   "Order by a.CBJ_RegDate DESC ";
        case Everything:
        case Canceled:
            return "Order by a.CBJ_RegDate DESC ";
    }
    return "";
}

}  // namespace

std::int16_t clsZELVORecordSet::RecordSet_CBJmInfo(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array,
                                                   OrdersBy Kind, std::int32_t DTR_PK,
                                                   const std::string& Word, const std::string& sDate,
                                                   const std::string& eDate) {
    if (DTR_PK == 0) return -1;
    Statement statement(
        "SELECT a.CBJ_PK, a.CBJ_RegDate, a.Patient_Name, a.Patient_Jumin, b.JL_Prompt, c.DTR_Name "
        "FROM t_ChubangJun a, t_JobList b, t_Doctor c "
        "WHERE a.CBJ_JobList_PK = b.JL_PK AND a.DTR_PK = c.DTR_PK ");
    if (DTR_PK > 0) statement.add("AND a.DTR_PK = [DTR_PK] ").fill("[DTR_PK]", DTR_PK);
    statement.add(Kind == OrdersBy::Canceled ? "AND a.CBJ_IsCanceled = 1 " : "AND a.CBJ_IsCanceled = 0 ")
        .add(searchPieces(Kind));
    const std::string word = basics::trim(basics::removeAll(Word, "'"));
    if (Kind == OrdersBy::IssueDate) statement.fill("[sDate]", sDate).fill("[eDate]", eDate);
    if (Kind == OrdersBy::PatientName) statement.fill("[Patient_Name]", word);
    if (Kind == OrdersBy::DoctorName) statement.fill("[DTR_Name]", word);
    return running::searchStatus(running::walk(Conn, Rs, Array, statement, searchCells));
}

}  // namespace zelvo::data
