#include "ordering/SendLog.h"

#include <cstdint>
#include <vector>

#include "basics/Text.h"
#include "ordering/ClinicFolder.h"
#include "ordering/CostConfirmation.h"

namespace zelvo::ordering {

namespace {

constexpr const char* blankLine = "\r\n\r\n";
constexpr const char* table = "<table border=1 cellspacing=0 cellpadding=2>";
constexpr std::string_view logName = "zelvo_", logEnding = ".htm";

namespace herb = composition::herb;
namespace option = composition::option;

/// A value as the browser shows it, whatever stands in it: a note's tags are no tags of the log.
std::string shown(std::string_view value) {
    std::string text;
    for (const char c : value) {
        if (c == '&') {
            text += "&amp;";
        } else if (c == '<') {
            text += "&lt;";
        } else if (c == '>') {
            text += "&gt;";
        } else {
            text += c;
        }
    }
    return text;
}

std::string style() {
    return "<style type=text/css>"
           "<!--"
           "body {font-size:9pt; font-family:돋움;}"
           "td {font-size:9pt; font-family:돋움;}"
           "a:link {font-size:9pt; text-decoration:none; color:darkblue}"
           "a:visited {text-decoration:none; color:darkblue}"
           "a:hover {text-decoration:underline; color:red}"
           " //-->"
           "</style>";
}

std::string title(const std::string& serverTime) {
    return "<font color=red>[" + serverTime + "] 전송한 처방전 입니다. </font>" + blankLine;
}

std::string people(const composition::PatientDelivery& patient, const composition::SenderBlock& sender) {
    const std::string wanted = patient.chkBesongDate.value() ? patient.dtpBesongDate.text() : "..";
    return "[환자NO]= " + shown(patient.lblPatientPK.caption()) +
           ", [환자이름]= " + shown(patient.txtPatientName.text()) +
           " [환자주소]= " + shown(patient.txtBesongZip.text() + " " + patient.txtBesongJuso.text()) +
           blankLine + "[배송방식]= " + shown(patient.cboBesongMethod.text()) + ", [받을날짜]= " + wanted +
           blankLine + "[한의원명]= " + shown(sender.txtHospitalName.text()) +
           ", [한의사]= " + shown(sender.txtDoctor.text()) +
           " [발송주소]= " + shown(sender.txtBalsongZip.text() + " " + sender.txtBalsongJuso.text()) +
           blankLine;
}

std::string tableRow(const std::vector<std::string>& cells) {
    std::string text = "<tr>";
    for (const std::string& cell : cells) text += "<td>" + shown(cell) + "&nbsp;</td>";
    return text + "</tr>";
}

std::string herbs(screen::Desktop& desktop, const OrderDraft& draft) {
    if (!draft.hasHerbs()) return std::string("[약재정보]") + blankLine;
    const tables::XArrayDB& lines = draft.lines();
    std::string text = std::string("[약재정보]\r\n") + table +
                       "<tr><td>약재명</td><td>한약국약재</td><td>용량(g)</td><td>단가</td><td>금액(원)</td>"
                       "<td>비고</td></tr>";
    for (int row = 0; row <= lines.upperRow(); ++row) {
        text += tableRow({lines.text(row, herb::name), lines.text(row, herb::pharmacyName),
                          lines.text(row, herb::grams), lines.text(row, herb::price),
                          lines.text(row, herb::amount), lines.text(row, herb::note)});
        desktop.yield();
    }
    return text + "</table>\r\n[첩수]= " + shown(draft.dose.txtChubsu.text()) +
           ", [약재가격]= " + shown(draft.dose.txtDrugPrice.text()) + blankLine;
}

std::string addOnNames(const tables::XArrayDB& addOns) {
    std::vector<std::string> names;
    for (int row = addOns.lowerRow(); row <= addOns.upperRow(); ++row) {
        if (addOns.isTrue(row, option::selected)) names.push_back(addOns.text(row, option::name));
    }
    return basics::join(names, ", ");
}

std::string decoction(const OrderDraft& draft) {
    if (!draft.hasDecoction()) return std::string("[탕전정보]\r\n[제형변화]") + blankLine;
    const tables::XArrayDB& methods = draft.options.m_xaTJML;
    const composition::DoseFields& dose = draft.dose;
    return "[탕전정보]= " +
           shown(methods.text(composition::modHanYakGuk::selectedRow(methods), option::name)) + "\r\n" +
           "[제형변화]= " + shown(addOnNames(draft.options.m_xaTJAL)) + "\r\n" +
           "[1일 복용팩수]= " + shown(dose.txtDayTuyak.text()) +
           ", [복용일]= " + shown(dose.txtTuyakilsu.text()) +
           ", [총파우치]= " + shown(dose.txtPouchTotal.text()) +
           ", [1팩용량]= " + shown(dose.txtPouchAmount.text()) + blankLine;
}

std::string boxed(const std::string& heading, const std::string& text) {
    return heading + "\r\n" + table + "<tr><td>" + shown(text) + "</td></tr></table>\r\n";
}

/// A note shows without its last line; one of a single line shows as an empty cell.
std::string shownNote(const std::string& note) {
    const std::size_t lastBreak = note.rfind(basics::lineBreak);
    return lastBreak == std::string::npos ? std::string() : note.substr(0, lastBreak);
}

std::string costTable(screen::Desktop& desktop, const tables::XArrayDB& costs) {
    std::string text = table;
    for (int row = 0; row <= costs.upperRow(); ++row) {
        text += tableRow({basics::trim(costs.text(row, cost::label)), costs.text(row, cost::amount),
                          shownNote(costs.text(row, cost::note))});
        desktop.yield();
    }
    return text + "</table>";
}

}  // namespace

std::string sendLogText(screen::Desktop& desktop, const OrderDraft& draft, const tables::XArrayDB& costs,
                        const std::string& serverTime) {
    const std::string text =
        style() + title(serverTime) + people(draft.patient, draft.sender) +
        "[처방전 주문서]= " + shown(draft.options.m_xaJobList.text(draft.jobRow(), option::name)) +
        blankLine + herbs(desktop, draft) + decoction(draft) +
        boxed("[처방메세지]", draft.sheet.txtCBJmsg.text()) +
        boxed("[복용법]", draft.sheet.rtxEatGuide.rtf()) +
        "[지불방식]= " + shown(draft.payment.cboPaymentMethod.text()) + blankLine + costTable(desktop, costs);
    return basics::replaceAll(text, basics::lineBreak, "<BR>");
}

std::unique_ptr<screen::HeldFile> Write_SendLog(screen::FileSystemObject& files, const std::string& text,
                                                const std::string& serverTime) {
    files.createFolder(clinicFolder(files));
    return makeUnderFreeName(files, clinicFolder(files) + "/" + std::string(logName) + timeDigits(serverTime),
                             logEnding, text);
}

std::string printOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;  // FNV-1a
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::string print;
    for (int shift = 60; shift >= 0; shift -= 4) print += "0123456789abcdef"[hash >> shift & 0xF];
    return print;
}

void Remove_SendLog(screen::FileSystemObject& files, const std::string& serverTime, std::string_view print) {
    const std::string folder = clinicFolder(files), start = std::string(logName) + timeDigits(serverTime);
    for (const std::string& name : files.namesIn(folder)) {
        if (!name.starts_with(start) || !name.ends_with(logEnding)) continue;
        try {
            const auto log = files.holdFile(basics::join({folder, name}, "/"));
            if (log && printOf(log->text()) == print) return log->remove();
        } catch (const basics::Fault&) {
            // What can't be read is not this one.
        }
    }
}

}  // namespace zelvo::ordering
