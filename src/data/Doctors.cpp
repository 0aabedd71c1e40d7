#include <exception>

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

bool clsZELVORecordSet::Update_DoctorInfo(Connection& Conn, std::int32_t DTR_PK, const DoctorRecord& doctor) {
    return running::flag([&] {
        Statement statement(
            "UPDATE t_Doctor SET DTR_Name = '[DTR_Name]', DTR_LicenseNo = '[DTR_LicenseNo]', "
            "DTR_Cell = '[DTR_Cell]', DTR_Email = '[DTR_Email]', DTR_HosTel = '[DTR_HosTel]', "
            "DTR_HosName = '[DTR_HosName]', "
            "DTR_HosZip = '[DTR_HosZip]', DTR_Address = '[DTR_Address]' "
            "WHERE DTR_PK = [DTR_PK]");
        statement.fill("[DTR_PK]", DTR_PK)
            .fill("[DTR_Name]", doctor.DTR_Name)
            .fill("[DTR_LicenseNo]", doctor.DTR_LicenseNo)
            .fill("[DTR_Cell]", doctor.DTR_Cell)
            .fill("[DTR_Email]", doctor.DTR_Email)
            .fill("[DTR_HosTel]", doctor.DTR_HosTel)
            .fill("[DTR_HosName]", doctor.DTR_HosName)
            .fill("[DTR_HosZip]", doctor.DTR_HosZip)
            .fill("[DTR_Address]", doctor.DTR_Address);
        running::execute(Conn, statement);
        return true;
    });
}

bool clsZELVORecordSet::Update_DoctorPassword(Connection& Conn, std::int32_t DTR_PK,
                                              const std::string& DTR_PWD) {
    return running::flag([&] {
        Statement statement(
            "UPDATE t_Doctor SET DTR_PWD = '[DTR_PWD]' "
            " WHERE DTR_PK = [DTR_PK]");
        // The key first: what a doctor types may look like its placeholder.
        statement.fill("[DTR_PK]", DTR_PK).fill("[DTR_PWD]", DTR_PWD);
        try {
            running::execute(Conn, statement);
            return true;
        } catch (const std::exception&) {
            // Without its answer nobody knows which password holds.
        }
        const auto holds = [&](Connection& asked) { return passwordIs(asked, DTR_PK, DTR_PWD); };
        return (Conn.isOpen() ? holds(Conn) : askAnother(Conn, holds)) == true;
    });
}

}  // namespace zelvo::data
