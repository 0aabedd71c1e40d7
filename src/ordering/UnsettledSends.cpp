#include "ordering/UnsettledSends.h"

#include <exception>
#include <utility>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/ServerAddress.h"
#include "ordering/ClinicFolder.h"
#include "ordering/SendLog.h"

namespace zelvo::ordering {

namespace {

constexpr std::string_view markName = "unsettled_", markEnding = ".txt";

/// Whatever stands in it, a name is one line of the mark.
std::string oneLine(std::string text) {
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    }
    return text;
}

std::string textOf(const UnsettledSend& send) {
    return basics::join(
        {basics::decimalText(std::int64_t{send.DTR_PK}), basics::decimalText(std::int64_t{send.CBJ_PK}),
         send.serverTime, oneLine(send.server), oneLine(send.patientName), send.logPrint, ""},
        basics::lineBreak);
}

/// Throws Fault for what is no mark.
UnsettledSend readMark(const std::string& text) {
    const std::vector<std::string> lines = basics::split(text, basics::lineBreak);
    if (lines.size() != 7) throw basics::Fault("no mark of a send");
    UnsettledSend send{.DTR_PK = basics::toInt32(lines[0]),
                       .CBJ_PK = basics::toInt32(lines[1]),
                       .serverTime = lines[2],
                       .server = lines[3],
                       .patientName = lines[4],
                       .logPrint = lines[5]};
    if (textOf(send) != text) throw basics::Fault("no mark of a send");
    return send;
}

}  // namespace

std::unique_ptr<screen::HeldFile> UnsettledSends::mark(const UnsettledSend& send) const {
    const auto files = fileSystem(desktop_);
    const std::string name = clinicFolder(*files) + "/" + std::string(markName) +
                             timeDigits(send.serverTime) + "_" +
                             basics::decimalText(std::int64_t{send.CBJ_PK});
    files->createFolder(clinicFolder(*files));
    return makeUnderFreeName(*files, name, markEnding, textOf(send));
}

std::vector<UnsettledSends::Left> UnsettledSends::left(std::int32_t DTR_PK, const std::string& server) {
    std::vector<Left> sends;
    try {
        const auto files = fileSystem(desktop_);
        const std::string folder = clinicFolder(*files);
        for (const std::string& name : files->namesIn(folder)) {
            if (!name.starts_with(markName) || !name.ends_with(markEnding)) continue;
            std::optional<Left> one = readLeft(*files, basics::join({folder, name}, "/"));
            // A mark of former days bears the address as it was spelled.
            if (one && one->send.DTR_PK == DTR_PK && data::databaseName(one->send.server) == oneLine(server))
                sends.push_back(std::move(*one));
        }
    } catch (const std::exception&) {
        if (!passedOver_.insert("").second) return sends;  // the folder
        metUnreadable_ = true;
        noteFileTrouble(desktop_, "folder of the marks");
    }
    return sends;
}

std::optional<UnsettledSends::Left> UnsettledSends::readLeft(screen::FileSystemObject& files,
                                                             const std::string& path) {
    if (passedOver_.contains(path)) return std::nullopt;
    try {
        auto mark = files.holdFile(path);
        if (!mark && !files.isHeldByFinder(path)) {
            // Another one that only looked may have let go of it meanwhile.
            mark = files.holdFile(path);
            if (!mark) return std::nullopt;
        }
        const std::string text = mark ? mark->text() : files.readTextFile(path);
        if (!mark && text.empty()) return std::nullopt;  // settled this moment
        UnsettledSend send = readMark(text);
        return Left{.send = std::move(send), .mark = std::move(mark)};
    } catch (const std::exception&) {
        passedOver_.insert(path);
        metUnreadable_ = true;
        noteFileTrouble(desktop_, "mark that was left");
        return std::nullopt;
    }
}

bool UnsettledSends::metUnreadable() {
    return std::exchange(metUnreadable_, false);
}

void UnsettledSends::settle(screen::HeldFile& mark) {
    try {
        mark.remove();
    } catch (const std::exception&) {
        passedOver_.insert(mark.path());
        noteFileTrouble(desktop_, "mark to be taken away");
    }
}

void UnsettledSends::removeLog(const UnsettledSend& send) const {
    try {
        Remove_SendLog(*fileSystem(desktop_), send.serverTime, send.logPrint);
    } catch (const std::exception&) {
        // It stays; that the order does not stand has been said.
    }
}

}  // namespace zelvo::ordering
