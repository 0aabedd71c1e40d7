#pragma once

// C++17 over the functions of doctorzelvo.h: all of this is compiled into the chart, so that any compiler's
// C++ can call the library. What the chart's own code throws never leaves the chart.
#include <cstdint>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>

#include "doctorzelvo/doctorzelvo.h"

/// ZELVO: the order client between a clinic's chart and the herbal pharmacy. All texts are UTF-8.
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
/// caller's thread, and return when they have closed: true if the user confirmed. An exception that leaves
/// one is told to the user.
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

/// Make the host's own dialogs, a fresh one for each use; an empty one leaves the component's. They count
/// from the next call on.
struct OwnDialogs {
    std::function<std::unique_ptr<AccountPrompt>()> makeAccountPrompt;
    std::function<std::unique_ptr<PostalLookup>()> makePostalLookup;
    std::function<std::unique_ptr<EatGuideEditor>()> makeEatGuideEditor;
};

/// The one class that a chart calls. A call opens the window and returns when it has closed. One window at a
/// time stands open in a process: a call that comes meanwhile returns at once with an errorText and leaves
/// the open one alone.
class clsZELVOInterface : public OwnDialogs {
public:
    /// The window stands on the screen. On Linux the host's own QApplication is used where it has one; where
    /// it has no toolkit running, and always on Windows, where the toolkit is the library's own, one is
    /// started at the first call and kept for further calls. Whatever thread that was (of a host with a main
    /// loop of glib: the one that runs it), all calls of the process's life come on it, those after a
    /// shutdown too. The host's locale stays as it is, and on Windows what it knows of its screens'
    /// resolutions.
    clsZELVOInterface() = default;
    clsZELVOInterface(const clsZELVOInterface&) = delete;
    clsZELVOInterface& operator=(const clsZELVOInterface&) = delete;

    /// An order has been stored. Called inside the running call, on the caller's thread. It returns, or
    /// throws, which is told to the doctor; a longjmp out of it leaves the component unusable.
    std::function<void(const ChartRecord&)> Send2Chart;

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
    const std::string& errorText() const { return errorText_; }

private:
    friend int runInTerminal(const std::string&, const std::function<void(clsZELVOInterface&)>&);
    explicit clsZELVOInterface(doctorzelvo_terminal* terminal) : terminal_(terminal) {}
    template <class Open>
    bool call(const Open& open);

    doctorzelvo_terminal* terminal_ = nullptr;
    std::string errorText_;
};

/// Ends the toolkit that the first call has started, on that call's thread; further calls there start it
/// anew. False where it can't be ended now: a window stands open, or another thread started it. No thread and
/// no descriptor of ours stays. What the libraries beneath keep once for the process does: one descriptor of
/// the main loop, and on a real display the thread and the line of the desktop's message bus.
inline bool shutdown() {
    return doctorzelvo_shutdown() != 0;
}

/// The component in a terminal: `chart` makes its call, the window's commands come from the script of this
/// path ("": the standard input), and what is left of the script is read when the window has closed. Gives
/// the exit code of the whole.
inline int runInTerminal(const std::string& script, const std::function<void(clsZELVOInterface&)>& chart);

/// What lies between the class and the C functions; no chart needs it.
namespace detail {

inline std::string textOf(const char* text) {
    return text ? text : "";
}

/// Texts as C takes them: U+0000, which would end one early, is left out.
class CTexts {
public:
    const char* operator()(const std::string& text) {
        if (text.find('\0') == std::string::npos) return text.c_str();
        kept_.emplace_back();
        for (const char character : text) {
            if (character != '\0') kept_.back() += character;
        }
        return kept_.back().c_str();
    }

private:
    std::list<std::string> kept_;
};

inline void give(doctorzelvo_text* place, const std::string& text) {
    CTexts texts;
    place->give(place, texts(text));
}

/// Runs the chart's code inside the library's call; what it throws ends here and is told.
template <class Work>
int guarded(doctorzelvo_text* error, const Work& work) noexcept {
    try {
        return work();
    } catch (const std::exception& failure) {
        error->give(error, failure.what());
    } catch (...) {  // the component has a word for it
    }
    return doctorzelvo_failed;
}

/// One call: what the chart has brought when it began, and what it learns of its end.
class Call {
public:
    explicit Call(const clsZELVOInterface& chart)
        : chart_(chart), own_(static_cast<const OwnDialogs&>(chart)) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    const std::string& reason() const { return reason_; }

    doctorzelvo_chart brought(doctorzelvo_terminal* terminal) {
        doctorzelvo_chart functions = {};
        functions.size = sizeof functions;
        functions.context = this;
        functions.terminal = terminal;
        functions.tell = &tell;
        functions.Send2Chart = &send;
        if (own_.makeAccountPrompt) {
            functions.Login = &login;
            functions.ChangePassword = &changePassword;
        }
        if (own_.makePostalLookup) functions.ZipCode = &zipCode;
        if (own_.makeEatGuideEditor) functions.EditEatGuide = &edit;
        return functions;
    }

private:
    static Call& of(void* context) { return *static_cast<Call*>(context); }
    static int answer(bool confirmed) { return confirmed ? doctorzelvo_confirmed : doctorzelvo_cancelled; }

    static void tell(const char* reason, void* context) noexcept {
        try {
            of(context).reason_ = textOf(reason);
        } catch (...) {  // too little memory for a word
        }
    }

    static int send(const doctorzelvo_chart_record* order, doctorzelvo_text* error, void* context) noexcept {
        return guarded(error, [&] {
            const auto& send2Chart = of(context).chart_.Send2Chart;
            if (send2Chart) {
                send2Chart({textOf(order->strJob), order->intChupSu, order->intPouchAmount,
                            order->sglDayTuYak, order->intTuyakilsu, order->intPouchTotal,
                            textOf(order->strMessage), order->lngSumCost, textOf(order->strxDrugList)});
            }
            return answer(true);
        });
    }

    /// A dialog of the chart's, made for one use.
    template <class Dialog, class Work>
    static int inDialog(const std::function<std::unique_ptr<Dialog>()>& make, doctorzelvo_text* error,
                        const Work& work) noexcept {
        return guarded(error, [&]() -> int {
            const auto dialog = make();
            if (!dialog) return doctorzelvo_missing;
            return answer(work(*dialog));
        });
    }

    static int login(doctorzelvo_text* id, doctorzelvo_text* password, doctorzelvo_text* error,
                     void* context) noexcept {
        return inDialog(of(context).own_.makeAccountPrompt, error, [&](AccountPrompt& prompt) {
            std::string ownId = textOf(id->utf8), ownPassword = textOf(password->utf8);
            const bool confirmed = prompt.Login(ownId, ownPassword);
            give(id, ownId);
            give(password, ownPassword);
            return confirmed;
        });
    }

    static int changePassword(const char* oldPassword, doctorzelvo_text* newPassword, doctorzelvo_text* error,
                              void* context) noexcept {
        return inDialog(of(context).own_.makeAccountPrompt, error, [&](AccountPrompt& prompt) {
            std::string own = textOf(newPassword->utf8);
            const bool confirmed = prompt.ChangePassword(textOf(oldPassword), own);
            give(newPassword, own);
            return confirmed;
        });
    }

    static int zipCode(doctorzelvo_text* url, doctorzelvo_text* juso, doctorzelvo_text* zip,
                       std::int32_t* left, std::int32_t* top, doctorzelvo_text* error,
                       void* context) noexcept {
        return inDialog(of(context).own_.makePostalLookup, error, [&](PostalLookup& lookup) {
            std::string ownUrl = textOf(url->utf8), ownJuso = textOf(juso->utf8), ownZip = textOf(zip->utf8);
            const bool confirmed = lookup.ZipCode(ownUrl, ownJuso, ownZip, *left, *top);
            give(url, ownUrl);
            give(juso, ownJuso);
            give(zip, ownZip);
            return confirmed;
        });
    }

    static int edit(void* conSQL, doctorzelvo_text* patientName, doctorzelvo_text* sheetRtf,
                    doctorzelvo_text* hospitalName, doctorzelvo_text* phoneNo, doctorzelvo_text* error,
                    void* context) noexcept {
        return inDialog(of(context).own_.makeEatGuideEditor, error, [&](EatGuideEditor& editor) {
            std::string name = textOf(patientName->utf8), sheet = textOf(sheetRtf->utf8),
                        hospital = textOf(hospitalName->utf8), phone = textOf(phoneNo->utf8);
            const bool confirmed = editor.edit(conSQL, name, sheet, hospital, phone);
            give(patientName, name);
            give(sheetRtf, sheet);
            give(hospitalName, hospital);
            give(phoneNo, phone);
            return confirmed;
        });
    }

    const clsZELVOInterface& chart_;
    const OwnDialogs own_;
    std::string reason_;
};

}  // namespace detail

template <class Open>
bool clsZELVOInterface::call(const Open& open) {
    errorText_.clear();
    detail::Call call(*this);
    detail::CTexts texts;
    const doctorzelvo_chart brought = call.brought(terminal_);
    const int outcome = open(texts, brought);
    if (outcome == doctorzelvo_broken) throw std::runtime_error(call.reason());
    errorText_ = outcome == doctorzelvo_turned_away ? call.reason() : "";
    return false;
}

inline bool clsZELVOInterface::ZELVOInterface(
    void* conSQL, const std::string& YakGukIP, const std::string& DoctorIDPWD, std::int32_t PatientPK,
    const std::string& PatientName, const std::string& PatientJumin, std::int16_t PatientAge,
    std::int16_t PatientSex, const std::string& PatientCell, const std::string& PatientTel,
    const std::string& PatientEmail, const std::string& PatientZipCode, const std::string& PatientJuso,
    const std::string& HospitalName, const std::string& DoctorName, const std::string& HospitalTel,
    const std::string& DoctorCell, const std::string& HospitalZipCode, const std::string& HospitalJuso) {
    return call([&](detail::CTexts& c, const doctorzelvo_chart& brought) {
        doctorzelvo_patient patient = {};
        patient.PatientPK = PatientPK;
        patient.PatientName = c(PatientName);
        patient.PatientJumin = c(PatientJumin);
        patient.PatientAge = PatientAge;
        patient.PatientSex = PatientSex;
        patient.PatientCell = c(PatientCell);
        patient.PatientTel = c(PatientTel);
        patient.PatientEmail = c(PatientEmail);
        patient.PatientZipCode = c(PatientZipCode);
        patient.PatientJuso = c(PatientJuso);
        patient.HospitalName = c(HospitalName);
        patient.DoctorName = c(DoctorName);
        patient.HospitalTel = c(HospitalTel);
        patient.DoctorCell = c(DoctorCell);
        patient.HospitalZipCode = c(HospitalZipCode);
        patient.HospitalJuso = c(HospitalJuso);
        return doctorzelvo_open(conSQL, c(YakGukIP), c(DoctorIDPWD), &patient, &brought);
    });
}

inline bool clsZELVOInterface::ZELVOInterface_Nurse(void* conSQL, const std::string& YakGukIP,
                                                    const std::string& DoctorIDPWD) {
    return call([&](detail::CTexts& c, const doctorzelvo_chart& brought) {
        return doctorzelvo_open_nurse(conSQL, c(YakGukIP), c(DoctorIDPWD), &brought);
    });
}

inline int runInTerminal(const std::string& script, const std::function<void(clsZELVOInterface&)>& chart) {
    struct Run {
        const std::function<void(clsZELVOInterface&)>& chart;
        int (*make)(Run& run, doctorzelvo_terminal* terminal);
        std::exception_ptr thrown;
        std::string reason;
    };
    Run run{chart,
            [](Run& running, doctorzelvo_terminal* terminal) {
                clsZELVOInterface component(terminal);
                running.chart(component);
                return 1;
            },
            nullptr,
            {}};
    const auto call = [](doctorzelvo_terminal* terminal, void* context) noexcept -> int {
        Run& running = *static_cast<Run*>(context);
        try {
            return running.make(running, terminal);
        } catch (...) {
            running.thrown = std::current_exception();
            return 0;
        }
    };
    const auto tell = [](const char* reason, void* context) noexcept {
        try {
            static_cast<Run*>(context)->reason = detail::textOf(reason);
        } catch (...) {  // too little memory for a word
        }
    };
    const int code = doctorzelvo_run_in_terminal(detail::CTexts()(script), call, tell, &run);
    if (run.thrown) std::rethrow_exception(run.thrown);
    if (code < 0) throw std::runtime_error(run.reason);
    return code;
}

}  // namespace doctorzelvo
