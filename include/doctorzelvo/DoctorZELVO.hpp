#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#if defined(_WIN32) && defined(DoctorZELVO_EXPORTS)
#define DOCTORZELVO_API __declspec(dllexport)
#elif defined(_WIN32)
#define DOCTORZELVO_API __declspec(dllimport)
#else
#define DOCTORZELVO_API __attribute__((visibility("default")))
#endif

/// 진료의사용 ZELVO: the order client between a clinic's chart and the herbal pharmacy. All texts are UTF-8.
namespace doctorzelvo {

/// What Send2Chart brings, in its order.
struct ChartRecord {
    std::string strJob;               ///< name of the order type
    std::int16_t intChupSu = 0;       ///< packets
    std::int16_t intPouchAmount = 0;  ///< millilitres a pouch
    float sglDayTuYak = 0;            ///< packs a day
    std::int16_t intTuyakilsu = 0;    ///< days of treatment
    std::int16_t intPouchTotal = 0;   ///< pouches in all
    std::string strMessage;           ///< the note to the pharmacy
    std::int32_t lngSumCost = 0;      ///< total, won
    std::string strxDrugList;         ///< herbs: name "/$CD$/" grams, rows joined by "/$RD$/"
};

/// A host's own dialogs, each in the place of the component's. They are shown inside the running call, on the
/// caller's thread, and return when they have closed: true if the user confirmed. A std::exception that
/// leaves one is told to the user.
class AccountPrompt {
public:
    virtual ~AccountPrompt() = default;
    /// Both texts come empty and hold what was typed.
    virtual bool Login(std::string& id, std::string& password) = 0;
    virtual bool ChangePassword(const std::string& oldPassword, std::string& newPassword) = 0;
};
class PostalLookup {
public:
    virtual ~PostalLookup() = default;
    /// `url` is the pharmacy's search page; `juso` and `zip` take the address and its code; left and top are
    /// where the dialog is wanted, in twips.
    virtual bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                         std::int32_t& top) = 0;
};
class EatGuideEditor {
public:
    virtual ~EatGuideEditor() = default;
    /// The sheet comes and goes as RTF, with the clinic's name and telephone that stand on it; `conSQL` is
    /// the chart's connection, as it was handed over.
    virtual bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf,
                      std::string& hospitalName, std::string& phoneNo) = 0;
};

/// The one class that a chart calls. A call opens the window and returns when it has closed. One window at a
/// time stands open in a process: a call that comes meanwhile returns at once with an errorText and leaves
/// the open one alone.
class DOCTORZELVO_API clsZELVOInterface {
public:
    /// The window stands on the screen. The host's own QApplication is used where it has one; where it has no
    /// toolkit running, one is started at the first call and kept for further calls. Whatever thread that
    /// was (of a host with a main loop of glib: the one that runs it), all calls of the process's life come
    /// on it, those after a shutdown too. The host's locale stays as it is.
    clsZELVOInterface();
    ~clsZELVOInterface();
    clsZELVOInterface(const clsZELVOInterface&) = delete;
    clsZELVOInterface& operator=(const clsZELVOInterface&) = delete;

    /// An order has been stored. Called inside the running call, on the caller's thread. It returns, or
    /// throws a std::exception, which is told to the doctor; a longjmp out of it leaves the component
    /// unusable.
    std::function<void(const ChartRecord&)> Send2Chart;

    /// Make the host's own dialogs, a fresh one for each use; an empty one leaves the component's. They count
    /// from the next call on.
    std::function<std::unique_ptr<AccountPrompt>()> makeAccountPrompt;
    std::function<std::unique_ptr<PostalLookup>()> makePostalLookup;
    std::function<std::unique_ptr<EatGuideEditor>()> makeEatGuideEditor;

    /// Opens the window for a doctor. The result is False on every path: what was ordered comes by Send2Chart
    /// alone. An error of the component's own leaves as a std::exception. `conSQL` is the chart's own
    /// connection, handed on untouched.
    bool ZELVOInterface(void* conSQL, const std::string& YakGukIP, const std::string& DoctorIDPWD,
                        std::int32_t PatientPK, const std::string& PatientName,
                        const std::string& PatientJumin, std::int16_t PatientAge, std::int16_t PatientSex,
                        const std::string& PatientCell, const std::string& PatientTel,
                        const std::string& PatientEmail, const std::string& PatientZipCode,
                        const std::string& PatientJuso, const std::string& HospitalName,
                        const std::string& DoctorName, const std::string& HospitalTel,
                        const std::string& DoctorCell, const std::string& HospitalZipCode,
                        const std::string& HospitalJuso);
    /// Opens the window for a nurse: the accounts of her doctors, joined by "#$#".
    bool ZELVOInterface_Nurse(void* conSQL, const std::string& YakGukIP, const std::string& DoctorIDPWD);

    /// Why the last call was turned away, "" when it was not: a window of this process stood open, no display
    /// can be reached, no Korean font is there, or the call came on another thread than the windows'.
    const std::string& errorText() const;

private:
    friend DOCTORZELVO_API int runInTerminal(const std::string&,
                                             const std::function<void(clsZELVOInterface&)>&);
    struct Parts;
    explicit clsZELVOInterface(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> parts_;
};

/// Ends the toolkit that the first call has started, on that call's thread; further calls there start it
/// anew. False where it can't be ended now: a window stands open, or another thread started it. No thread and
/// no descriptor of ours stays. What the libraries beneath keep once for the process does: one descriptor of
/// the main loop, and on a real display the thread and the line of the desktop's message bus.
DOCTORZELVO_API bool shutdown();

/// The component in a terminal: `chart` makes its call, the window's commands come from the script of this
/// path ("": the standard input), and what is left of the script is read when the window has closed. Gives
/// the exit code of the whole.
DOCTORZELVO_API int runInTerminal(const std::string& script,
                                  const std::function<void(clsZELVOInterface&)>& chart);

}  // namespace doctorzelvo
