#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

using running::Cell;
using running::status;
using running::WalkEnd;

namespace {

using enum Cell::Content;

constexpr Cell addOnCells[] = {{0, Unselected},
                               {1, Field, "TJAL_PK"},
                               {2, Field, "TJAL_Prompt"},
                               {3, Blank},
                               {4, Field, "TJAL_Message"},
                               {5, Field, "TJAL_Slot"},
                               {6, Field, "TJAL_Type"},
                               {7, Field, "TJAL_Order"}};
constexpr Cell methodCells[] = {{0, Unselected}, {1, Field, "TJML_PK"},      {2, Field, "TJML_Prompt"},
                                {3, Blank},      {4, Field, "TJML_Message"}, {5, Field, "TJML_Order"}};
constexpr Cell orderTypeCells[] = {{0, Unselected},
                                   {1, Field, "JL_PK"},
                                   {2, Field, "JL_Prompt"},
                                   {3, Blank},
                                   {4, Field, "JL_Message"},
                                   {5, Flag, "JL_DrugVisible"},
                                   {6, Flag, "JL_TangJunVisible"},
                                   {7, Field, "JL_Order"}};

/// The server's date as "yyyy-mm-dd": prices hold by it, never by the date of the clinic's machine.
std::string serverDate(Connection& Conn, Connection::From from = Connection::From::current()) {
    return basics::formatDate(running::serverTime(Conn, "SELECT GETDATE()", from));
}

}  // namespace

std::string clsZELVORecordSet::RecordSet_SvrGetdate(Connection& Conn) {
    std::string time = "-1";
    status([&] { time = running::serverTime(Conn, "SELECT getdate()"); });
    return time;
}

std::int16_t clsZELVORecordSet::RecordSet_TangJunADD(Connection& Conn, RecordSet& Rs,
                                                     tables::XArrayDB& Array) {
    const Statement statement(
        "SELECT * FROM t_TangJunAddList "
        "Where TJAL_IsValid = '1' "
        "Order by TJAL_Order ");
    return running::walk(Conn, Rs, Array, statement, addOnCells) == WalkEnd::Done ? 1 : -1;
}

std::int16_t clsZELVORecordSet::RecordSet_TangJun(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array) {
    const Statement statement(
        "SELECT * FROM t_TangJunMethodList "
        "Where TJML_IsValid = '1' "
        "Order by TJML_Order ");
    return running::walk(Conn, Rs, Array, statement, methodCells) == WalkEnd::Done ? 1 : -1;
}

std::int16_t clsZELVORecordSet::RecordSet_JobList(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array) {
    const Statement statement(
        "SELECT * FROM t_JobList "
        "Where JL_IsValid = 1 "
        "Order by JL_Order ");
    return running::searchStatus(running::walk(Conn, Rs, Array, statement, orderTypeCells));
}

std::int16_t clsZELVORecordSet::RecordSet_GongJi(Connection& Conn, RecordSet& Rs) {
    return status([&] {
        Conn.open(Rs,
                  "SELECT * FROM t_PxGongJi "
                  "Order by PGJ_Type Asc, PGJ_WriteDate Desc ",
                  Cursor::Keyset);
    });
}

std::int16_t clsZELVORecordSet::RecordSet_YakGukDrugList(Connection& Conn, RecordSet& Rs,
                                                         const std::string& Word) {
    return status([&] {
        const std::string today = serverDate(Conn);
        Statement statement(
            "SELECT a.DGL_PK, a.DGL_Default, a.DGL_CallSign, a.DGL_Internal, b.DGD_Danga "
            "FROM t_DrugList a, t_DrugDanga b "
            "WHERE a.DGL_CallSign Like '%[DGL_CallSign]%' "
            "AND a.DGL_IsValid = '1' "
            "AND a.DGL_PK = b.DGL_PK "
            "AND b.DGD_StartDate <= '");
        statement.add(today).add("' ");
        statement.add("AND b.DGD_EndDate >= '").add(today).add("' ");
        statement.add("Order by a.DGL_Default desc, a.DGL_CallSign asc ");
        statement.fill("[DGL_CallSign]", Word);
        Conn.open(Rs, statement.text(), Cursor::Keyset);
    });
}

std::int16_t clsZELVORecordSet::RecordSet_HapBang(Connection& Conn, const std::string& DGL_PK,
                                                  std::string& DGL_Internal, std::string& DGD_Danga) {
    DGL_Internal.clear();
    DGD_Danga.clear();
    return status([&] {
        const std::string today = serverDate(Conn);
        Statement statement(
            "SELECT a.DGL_internal, b.DGD_Danga "
            "FROM t_DrugList a, t_DrugDanga b "
            "Where a.DGL_PK = [DGL_PK] "
            "AND a.DGL_IsValid = '1' "
            "AND a.DGL_PK = b.DGL_PK "
            "AND b.DGD_StartDate <= '");
        statement.add(today).add("' ");
        statement.add("AND b.DGD_EndDate >= '").add(today).add("' ");
        statement.fill("[DGL_PK]", DGL_PK);
        RecordSet own;
        Conn.open(own, statement.text(), Cursor::Static);
        // A herb that is not sold today has no row, and reading one fails like a database that is gone.
        DGL_Internal = own.text("DGL_internal");
        DGD_Danga = own.text("DGD_Danga");
    });
}

}  // namespace zelvo::data
