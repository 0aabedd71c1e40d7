#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data/Connection.h"
#include "data/TextLengths.h"
#include "tables/XArrayDB.h"

namespace zelvo::data {

/// The values of a new row of t_ChubangJun, in the order of the statement; a member bears its column's name.
struct ChubangJun {
    std::int32_t DTR_PK = 0, Patient_PK = 0;
    std::string Patient_Name;
    std::int16_t Patient_Age = 0, Patient_Sex = 0;
    std::string Patient_Jumin, Patient_Email;
    std::int16_t CBJ_IsCanceled = 0, CBJ_IsPaid = 0, CBJ_JobList_PK = 0, CBJ_TJML_PK = 0;
    std::string CBJ_TJAL_Slot;
    std::int32_t CBJ_JojeCost = 0, CBJ_DrugCost = 0, CBJ_TJMLCost = 0, CBJ_TJALCost = 0, CBJ_PouchCost = 0,
                 CBJ_BoxCost = 0, CBJ_FormCost = 0, CBJ_BesongCost = 0, CBJ_VATCost = 0, CBJ_ElseCost = 0;
    std::int16_t CBJ_Chubsu = 0;
    float CBJ_PouchAmount = 0;
    std::int16_t CBJ_PouchTotal = 0;
    float CBJ_DayTuyak = 0;
    std::int16_t CBJ_Tuyakilsu = 0, CBJ_BesongMethod = 0, CBJ_PayMethod = 0;
    std::string CBJ_Send_Name, CBJ_Send_Zip, CBJ_Send_Address, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Hospital;
    std::string CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel, CBJ_Reci_Cell, CBJ_Reci_Date, CBJ_BesongMsg;
    std::string CBJ_Msg, CBJ_RegDate;
    std::int16_t CBJ_State = 0;
};

/// The ten notes of an order's cost lines.
struct CostNotes {
    std::string CCD_JojeCost, CCD_DrugCost, CCD_TJMLcost, CCD_TJALCost, CCD_PouchCost, CCD_BoxCost,
        CCD_FormCost, CCD_BesongCost, CCD_VATCost, CCD_ElseCost;
};

/// What a modification writes over an order that still waits; a member bears its column's name. Sex, age and
/// delivery method are numbers as text; "" leaves what is stored.
struct CBJmUpdate {
    bool costChanged = false;  ///< whether the members from CBJ_BesongCost to mileageMoney count
    std::int32_t DTR_PK = 0, CBJ_PK = 0;
    std::string Patient_Name, Patient_Jumin, Patient_Sex, Patient_Age, CBJ_Reci_Tel, CBJ_Reci_Cell,
        Patient_Email, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_BesongMsg, CBJ_BesongMethod, CBJ_Reci_Date,
        CBJ_Send_Hospital, CBJ_Send_Name, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Zip, CBJ_Send_Address,
        CBJ_Msg;
    std::int32_t CBJ_BesongCost = 0;
    std::string CCD_BesongCost;
    std::int32_t CBJ_ElseCost = 0;
    std::string CCD_ElseCost;
    std::int32_t mileageMoney = 0;
    std::string BogYak, HospName, PhoneNo;
    bool newSheet = false;  ///< the order may have had no sheet: a row is made where there is none
};

/// The pieces of one order read back. All are texts, NULL is ""; a flag is "True" or "False".
struct CBJmState {
    std::string CBJ_State, CBJ_IsPaid, CBJ_PayMethod, CBJ_Msg, CBJ_IsCanceled;
};
struct CBJmPatient {
    std::string Patient_PK, Patient_Name, Patient_Jumin, Patient_Sex, Patient_Age, CBJ_Reci_Tel,
        CBJ_Reci_Cell, Patient_Email, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_BesongMsg, CBJ_BesongMethod,
        CBJ_Reci_Date;
};
struct CBJmSender {
    std::string CBJ_Send_Hospital, DTR_PK, CBJ_Send_Name, CBJ_Send_Cell, CBJ_Send_Tel, CBJ_Send_Zip,
        CBJ_Send_Address;
};
struct CBJmEatGuide {
    std::string BogYak, HospName, PhoneNo;
};
struct CBJmJobList {
    std::string JL_PK, JL_Prompt, JL_Message;
};
struct CBJmTangJun {
    std::string TJML_PK, TJML_Prompt, TJML_Message, CBJ_DayTuyak, CBJ_Tuyakilsu, CBJ_PouchAmount,
        CBJ_PouchTotal;
    /// The chosen add-ons, "name/*/key", parted by "#*#".
    std::string Adds;
    std::size_t lostAdds = 0;  ///< chosen ones that have left the catalogue
};
/// The amounts in won (NULL is 0) with their notes; the last two amounts are the pharmacy's own.
struct CBJmCosts {
    std::int32_t CBJ_JojeCost = 0, CBJ_DrugCost = 0, CBJ_TJMLCost = 0, CBJ_TJALCost = 0, CBJ_PouchCost = 0,
                 CBJ_BoxCost = 0, CBJ_FormCost = 0, CBJ_BesongCost = 0, CBJ_VATCost = 0, CBJ_ElseCost = 0,
                 CBJ_UserCost = 0, CBJ_UserCostNoVAT = 0;
    CostNotes notes;
    std::string CBJ_UserCostNote, CBJ_UserCostNoteNoVAT;
};

/// A herb line whose herb has left the catalogue: no list that names herbs by it shows the line.
struct LostHerb {
    std::string name, grams;
};

/// A herb line of an order.
struct HerbLine {
    std::int32_t DGL_PK = 0;
    std::string DGL_CallSign;
    float DET_Weight = 0, DET_Danga = 0;
    std::int16_t DET_Money = 0;
    std::string DET_Note;
    std::int16_t DET_Order = 0;
};

/// A herb line of a stored prescription.
struct UserHerbLine {
    std::string DGL_CallSign;
    std::int32_t DGL_PK = 0;
    float UDET_Weight = 0;
    std::int16_t UDET_Order = 0;
    std::string UDET_Note;
};

/// How stored prescriptions are searched: by name, by memo; any other kind takes all.
using SearchKind = std::uint8_t;
inline constexpr SearchKind searchName = 1, searchMemo = 2;

/// What sent orders are searched by.
enum class OrdersBy : std::int16_t {
    IssueDate = 1,
    PatientName,
    DoctorName,
    Pending,
    Making,
    WaitingToGo,
    Finished,
    Unpaid,
    Paid,
    Deposit,
    PaidLater,
    Settled,
    Undecided,
    Parcel,
    Courier,
    Clinic,
    Canceled = 90,
    Everything = 99
};

/// A row of t_Doctor; a member bears its column's name. NULL is "" or 0.
struct DoctorRecord {
    std::string DTR_ID, DTR_PWD;
    std::int32_t DTR_PK = 0;
    std::string DTR_Name, DTR_LicenseNo;
    float DTR_Discount = 0, DTR_Mileage = 0;
    std::string DTR_Cell, DTR_Email, DTR_HosTel, DTR_HosName, DTR_HosZip, DTR_Address, DTR_RegDate;
    std::int16_t DTR_VIP = 0, DTR_IsUsePouch = 0;
    std::int32_t DTR_IsUseBox = 0;
    std::int16_t DTR_IsUseForm = 0;
    std::string DTR_ValidPay, DTR_Refer;
};

/// Every statement of the system on the pharmacy's tables, but for the sums of the ledger. Holds nothing
/// between calls. No operation raises or shows anything: a status is 1 or -1, a flag true or false.
class clsZELVORecordSet {
public:
    // New orders (OrderWrites.cpp). All run inside the caller's transaction and roll nothing back.
    /// The new order's key, or -1.
    std::int32_t Insert_ChubangJun(Connection& Conn, const ChubangJun& row);
    std::int16_t Insert_ChubangJun_CostDetail(Connection& Conn, std::int32_t CBJ_PK, const CostNotes& notes);
    std::int16_t Insert_ChubangJun_Detail(Connection& Conn, std::int32_t CBJ_PK, const HerbLine& line);
    std::int16_t Insert_ChubangJun_EatGuide(Connection& Conn, std::int32_t CBJ_PK, const std::string& BogYak,
                                            const std::string& HospName, const std::string& PhoneNo);
    std::int16_t Insert_ChubangJun_Mileage(Connection& Conn, std::int32_t DTR_PK, std::int32_t CBJ_PK,
                                           std::int32_t STK_Money, const std::string& STK_Date);

    // Waiting orders (OrderUpdates.cpp). Each runs in a transaction of its own, which is whole or nothing:
    // Refused is nothing, whatever failed. Where the answer to the commit was lost, another connection is
    // asked for what was written; Unknown is left when nobody answers. Neither looks at the order's state,
    // and a key that no order has is a success.
    CommitOutcome Update_ChubangJun(Connection& Conn, const CBJmUpdate& row);
    CommitOutcome Update_CBJCancel(Connection& Conn, std::int32_t CBJ_PK);

    // The server's clock and the catalogue (CatalogueReads.cpp).
    /// The server's date and time as the driver says it, or "-1".
    std::string RecordSet_SvrGetdate(Connection& Conn);
    /// Reads into `Array` from row 0 on; `Rs` stays open. Flags of an order type arrive as Booleans, NULL is
    /// no.
    std::int16_t RecordSet_TangJunADD(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array);
    std::int16_t RecordSet_TangJun(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array);
    std::int16_t RecordSet_JobList(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array);
    std::int16_t RecordSet_GongJi(Connection& Conn, RecordSet& Rs);
    /// Herbs on sale today whose name holds the word, recommended ones first.
    std::int16_t RecordSet_YakGukDrugList(Connection& Conn, RecordSet& Rs, const std::string& Word);
    /// How long the text columns of an order's tables are, where the server has a catalogue of its columns.
    std::int16_t RecordSet_TextLengths(Connection& Conn, TextLengths& lengths);
    /// Name and price of one herb today; -1 with both "" when there is none.
    std::int16_t RecordSet_HapBang(Connection& Conn, const std::string& DGL_PK, std::string& DGL_Internal,
                                   std::string& DGD_Danga);

    // Orders read back (OrderReads.cpp).
    /// The order search: running number, CBJ_PK, CBJ_RegDate, Patient_Name, six characters of Patient_Jumin,
    /// JL_Prompt, DTR_Name.
    std::int16_t RecordSet_CBJmInfo(Connection& Conn, RecordSet& Rs, tables::XArrayDB& Array, OrdersBy Kind,
                                    std::int32_t DTR_PK, const std::string& Word, const std::string& sDate,
                                    const std::string& eDate);
    /// The pieces of one order. A piece that has no row leaves what came, and is no failure.
    bool RecordSet_CBJmStateInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmState& state);
    bool RecordSet_CBJmPatientInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmPatient& patient);
    bool RecordSet_CBJmSendInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmSender& sender);
    /// Empties BogYak first.
    bool RecordSet_CBJmEatGuide(Connection& Conn, std::int32_t CBJ_PK, CBJmEatGuide& sheet);
    bool RecordSet_CBJmJobListInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmJobList& type);
    bool RecordSet_CBJmTangJunInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmTangJun& decoction);
    /// Name and explanation of one add-on, whether it is still offered or not.
    bool RecordSet_CBJmTangJunAdd(Connection& Conn, const std::string& TJAL_PK, std::string& TJAL_Prompt,
                                  std::string& TJAL_Message);
    /// The herb lines stay open in `Rs`, in the order that the order gives them, as the catalogue names the
    /// herbs, and apart from them those that it names no more; packets and herb price as text.
    bool RecordSet_CBJmDrug(Connection& Conn, RecordSet& Rs, std::int32_t CBJ_PK, std::string& CBJ_Chubsu,
                            std::string& CBJ_DrugCost, std::vector<LostHerb>& lost);
    bool RecordSet_CBJmCostInfo(Connection& Conn, std::int32_t CBJ_PK, CBJmCosts& costs);

    // Stored prescriptions (PersonalStore.cpp). The writes run inside the caller's transaction and roll
    // nothing back. Rows of the reads can be changed and deleted: a prescription by UCB_PK, a herb line by
    // UDET_PK.
    /// The new prescription's key, or -1.
    std::int32_t Insert_MyChubang(Connection& Conn, std::int32_t DTR_PK, const std::string& UCB_Name,
                                  const std::string& UCB_Note);
    std::int16_t Insert_MyChubangDetail(Connection& Conn, std::int32_t UCB_PK, const UserHerbLine& line);
    /// All lines of a prescription at once.
    std::int16_t Delete_MyChubangDetail(Connection& Conn, std::int32_t UCB_PK);
    std::int16_t RecordSet_MyChubang(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK);
    /// The herb lines, in their order, as the catalogue names the herbs; one whose herb has left it drops
    /// out.
    std::int16_t RecordSet_MyDrugList(Connection& Conn, RecordSet& Rs, std::int32_t UCB_PK);
    /// Those that drop out there.
    std::int16_t RecordSet_LostDrugs(Connection& Conn, std::int32_t UCB_PK, std::vector<LostHerb>& lost);
    std::int16_t RecordSet_FindMyChubang(Connection& Conn, RecordSet& Rs, const std::string& Word,
                                         std::int32_t DTR_PK, SearchKind Kind);
    /// The pharmacy's own.
    std::int16_t RecordSet_FindYakGukChubang(Connection& Conn, RecordSet& Rs, const std::string& Word,
                                             SearchKind Kind);

    // Doctors (Doctors.cpp).
    /// Kind 1 by id and password, 2 by key. 1 found, 0 no such doctor, -1 failure.
    std::int16_t RecordSet_DoctorInfo(Connection& Conn, std::int16_t Kind, DoctorRecord& doctor);
    bool RecordSet_LoginCheck(Connection& Conn, const std::string& DTR_ID, const std::string& DTR_PWD,
                              std::int32_t& DTR_PK);
    /// Writes what a doctor may change: name, licence, mobile, e-mail, and the clinic's telephone, name,
    /// postal code and address. A change whose answer was lost is asked after, where need be on a connection
    /// of its own.
    CommitOutcome Update_DoctorInfo(Connection& Conn, std::int32_t DTR_PK, const DoctorRecord& doctor);
    CommitOutcome Update_DoctorPassword(Connection& Conn, std::int32_t DTR_PK, const std::string& DTR_PWD);

    // Ledger rows (Ledger.cpp): dates "yyyy-mm-dd", or "" for all.
    std::int16_t RecordSet_StockMoneyIN(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                        const std::string& sDate, const std::string& eDate);
    std::int16_t RecordSet_StockMoneyUsed(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                          const std::string& sDate, const std::string& eDate);
    std::int16_t RecordSet_StockMileage(Connection& Conn, RecordSet& Rs, std::int32_t DTR_PK,
                                        const std::string& sDate, const std::string& eDate);

private:
    std::int32_t RecordSet_MaxCBJPK(Connection& Conn);
    std::int32_t ownMaxCBJPK(Connection& Conn, const ChubangJun& row);
    std::int32_t RecordSet_MaxUCBPK(Connection& Conn);
};

}  // namespace zelvo::data
