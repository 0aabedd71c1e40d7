#include "ordering/KeptDraft.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::ordering {

namespace {

constexpr std::string_view firstLine = "draft 1", lastLine = "end";

std::string escaped(std::string_view text) {
    std::string line = basics::replaceAll(text, "\\", "\\\\");
    line = basics::replaceAll(line, "\n", "\\n");
    return basics::replaceAll(line, "\r", "\\r");
}

std::string unescaped(std::string_view line) {
    std::string text;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] != '\\' || at + 1 == line.size()) {
            text += line[at];
            continue;
        }
        const char mark = line[++at];
        text += mark == 'n' ? '\n' : mark == 'r' ? '\r' : mark;
    }
    return text;
}

std::string lineOf(std::string_view name, std::string_view text) {
    return std::string(name) + "=" + escaped(text) + "\n";
}

/// Seconds since any one day.
std::int64_t seconds(const basics::DateTime& time) {
    using namespace std::chrono;
    const sys_days day{year(time.date.year) / time.date.month / time.date.day};
    return (day.time_since_epoch() + hours(time.hour) + minutes(time.minute) +
            std::chrono::seconds(time.second)) /
           std::chrono::seconds(1);
}

}  // namespace

std::string writeDraft(const KeptDraft& draft) {
    std::string text =
        std::string(firstLine) + "\n" + lineOf("doctor", basics::decimalText(std::int64_t{draft.DTR_PK})) +
        lineOf("patient", basics::decimalText(std::int64_t{draft.Patient_PK})) +
        lineOf("name", draft.patientName) + lineOf("server", draft.server) + lineOf("time", draft.keptAt);
    for (const auto& [name, content] : draft.texts) text += lineOf("." + name, content);
    return text + std::string(lastLine) + "\n";
}

std::optional<KeptDraft> readDraft(std::string_view text) {
    const std::vector<std::string> lines = basics::split(text, "\n");
    if (lines.size() < 3 || lines.front() != firstLine || lines[lines.size() - 2] != lastLine)
        return std::nullopt;
    KeptDraft draft;
    std::map<std::string, std::string> heads;
    for (std::size_t i = 1; i + 2 < lines.size(); ++i) {
        const std::size_t equals = lines[i].find('=');
        if (equals == std::string::npos) return std::nullopt;
        const std::string name = lines[i].substr(0, equals);
        std::string content = unescaped(std::string_view(lines[i]).substr(equals + 1));
        if (name.starts_with('.')) {
            draft.texts[name.substr(1)] = std::move(content);
        } else {
            heads[name] = std::move(content);
        }
    }
    try {
        draft.DTR_PK = basics::toInt32(heads["doctor"]);
        draft.Patient_PK = basics::toInt32(heads["patient"]);
    } catch (const basics::Fault&) {
        return std::nullopt;
    }
    draft.patientName = heads["name"];
    draft.server = heads["server"];
    draft.keptAt = heads["time"];
    return draft;
}

std::int64_t ageInMinutes(std::string_view keptAt, std::string_view now) {
    const auto then = basics::parseDateTime(keptAt), today = basics::parseDateTime(now);
    return then && today ? (seconds(*today) - seconds(*then)) / 60 : 0;
}

std::string ageText(std::string_view keptAt, std::string_view now) {
    const std::int64_t minutes = ageInMinutes(keptAt, now);
    if (minutes < 1) return "방금 전";
    if (minutes < 60) return basics::decimalText(minutes) + "분 전";
    constexpr std::int64_t hour = 60, day = 24 * hour;
    if (minutes < day) return basics::decimalText(minutes / hour) + "시간 전";
    return basics::decimalText(minutes / day) + "일 전";
}

}  // namespace zelvo::ordering
