#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

#include "data/OrderOutcome.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

namespace {

/// A flag as the screens use it: -1 for true, 0 for false and NULL.
std::int16_t flagOf(const RecordSet& row, std::string_view field) {
    return running::isTrue(row.text(field)) ? std::int16_t{-1} : std::int16_t{0};
}

void takeDoctor(const RecordSet& row, DoctorRecord& doctor) {
    doctor.DTR_ID = row.text("DTR_ID");
    doctor.DTR_PWD = row.text("DTR_PWD");
    doctor.DTR_PK = running::int32Of(row, "DTR_PK");
    doctor.DTR_Name = row.text("DTR_Name");
    doctor.DTR_LicenseNo = row.text("DTR_LicenseNo");
    doctor.DTR_Discount = running::singleOf(row, "DTR_Discount");
    doctor.DTR_Mileage = running::singleOf(row, "DTR_Mileage");
    doctor.DTR_Cell = row.text("DTR_Cell");
    doctor.DTR_Email = row.text("DTR_Email");
    doctor.DTR_HosTel = row.text("DTR_HosTel");
    doctor.DTR_HosName = row.text("DTR_HosName");
    doctor.DTR_HosZip = row.text("DTR_HosZip");
    doctor.DTR_Address = row.text("DTR_Address");
    doctor.DTR_RegDate = row.text("DTR_RegDate");
    doctor.DTR_VIP = flagOf(row, "DTR_VIP");
    doctor.DTR_IsUsePouch = flagOf(row, "DTR_IsUsePouch");
    doctor.DTR_IsUseBox = running::int32Of(row, "DTR_IsUseBox");
    doctor.DTR_IsUseForm = flagOf(row, "DTR_IsUseForm");
    doctor.DTR_ValidPay = row.text("DTR_ValidPay");
    doctor.DTR_Refer = row.text("DTR_Refer");
}

/// Runs a change of one row. Without its answer nobody knows what holds: then it is asked whether what was
/// written stands there.
CommitOutcome changed(Connection& Conn, const Statement& change, const Statement& written,
                      const Connection::From& from) {
    try {
        running::execute(Conn, change, from);
        return CommitOutcome::Done;
    } catch (const std::exception&) {
        const auto stands = [&](Connection& asked) { return rowStands(asked, written, "", from); };
        return outcomeOf(Conn.isOpen() ? stands(Conn) : askAnother(Conn, stands));
    }
}

/// Asks whether the doctor's row holds what is filled in for the columns.
std::string doctorSays(std::initializer_list<std::string_view> columns) {
    std::string question = "SELECT DTR_PK FROM t_Doctor WITH (READCOMMITTEDLOCK) WHERE DTR_PK = [DTR_PK] ";
    for (const std::string_view column : columns) question += running::saysText(column);
    return question;
}

/// The same by two texts that are filled alike; one that can't be filled has changed nothing.
template <class Fill>
CommitOutcome changedBy(Connection& Conn, const char* change, const std::string& written, Fill&& filled,
                        Connection::From from = Connection::From::current()) {
    auto outcome = CommitOutcome::Refused;
    running::status(
        [&] { outcome = changed(Conn, filled(Statement(change)), filled(Statement(written)), from); });
    return outcome;
}

}  // namespace

std::int16_t clsZELVORecordSet::RecordSet_DoctorInfo(Connection& Conn, std::int16_t Kind,
                                                     DoctorRecord& doctor) {
    bool found = false;
    const std::int16_t read = running::status([&] {
        Statement statement("SELECT * FROM t_Doctor ");
        if (Kind == 1) {
            statement.add(" Where DTR_ID = '[DTR_ID]' ").add(" And DTR_PWD = '[DTR_PWD]'");
            statement.fill("[DTR_ID]", doctor.DTR_ID).fill("[DTR_PWD]", doctor.DTR_PWD);
        } else if (Kind == 2) {
            statement.add(" Where DTR_PK = '[DTR_PK]' ").fill("[DTR_PK]", doctor.DTR_PK);
        }
        found = running::readRow(Conn, statement, [&](const RecordSet& row) { takeDoctor(row, doctor); });
    });
    if (read == -1) return -1;
    return found ? 1 : 0;
}

bool clsZELVORecordSet::RecordSet_LoginCheck(Connection& Conn, const std::string& DTR_ID,
                                             const std::string& DTR_PWD, std::int32_t& DTR_PK) {
    return running::flag([&] {
        Statement statement(
            "SELECT DTR_PK, DTR_ID, DTR_PWD FROM t_Doctor "
            " WHERE DTR_ID = '[ID]'"
            " AND DTR_PWD = '[PAssWord]'");
        statement.fill("[ID]", DTR_ID).fill("[PAssWord]", DTR_PWD);
        return running::readRow(Conn, statement,
                                [&](const RecordSet& row) { DTR_PK = running::int32Of(row, "DTR_PK"); });
    });
}

CommitOutcome clsZELVORecordSet::Update_DoctorInfo(Connection& Conn, std::int32_t DTR_PK,
                                                   const DoctorRecord& doctor) {
    return changedBy(Conn,
                     "UPDATE t_Doctor SET DTR_Name = '[DTR_Name]', DTR_LicenseNo = '[DTR_LicenseNo]', "
                     "DTR_Cell = '[DTR_Cell]', DTR_Email = '[DTR_Email]', DTR_HosTel = '[DTR_HosTel]', "
                     "DTR_HosName = '[DTR_HosName]', "
                     "DTR_HosZip = '[DTR_HosZip]', DTR_Address = '[DTR_Address]' "
                     "WHERE DTR_PK = [DTR_PK]",
                     doctorSays({"DTR_Name", "DTR_LicenseNo", "DTR_Cell", "DTR_Email", "DTR_HosTel",
                                 "DTR_HosName", "DTR_HosZip", "DTR_Address"}),
                     [&](Statement statement) {
                         return statement.fill("[DTR_PK]", DTR_PK)
                             .fill("[DTR_Name]", doctor.DTR_Name)
                             .fill("[DTR_LicenseNo]", doctor.DTR_LicenseNo)
                             .fill("[DTR_Cell]", doctor.DTR_Cell)
                             .fill("[DTR_Email]", doctor.DTR_Email)
                             .fill("[DTR_HosTel]", doctor.DTR_HosTel)
                             .fill("[DTR_HosName]", doctor.DTR_HosName)
                             .fill("[DTR_HosZip]", doctor.DTR_HosZip)
                             .fill("[DTR_Address]", doctor.DTR_Address);
                     });
}

CommitOutcome clsZELVORecordSet::Update_DoctorPassword(Connection& Conn, std::int32_t DTR_PK,
                                                       const std::string& DTR_PWD) {
    return changedBy(Conn,
                     "UPDATE t_Doctor SET DTR_PWD = '[DTR_PWD]' "
                     " WHERE DTR_PK = [DTR_PK]",
                     doctorSays({"DTR_PWD"}), [&](Statement statement) {
                         // The key first: what a doctor types may look like its placeholder.
                         return statement.fill("[DTR_PK]", DTR_PK).fill("[DTR_PWD]", DTR_PWD);
                     });
}

}  // namespace zelvo::data
