#include "ordering/UnsettledSends.h"

#include <algorithm>
#include <optional>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::ordering {

namespace {

std::unique_ptr<screen::FileSystemObject> fileSystem(screen::Desktop& desktop) {
    return desktop.components().make<screen::FileSystemObject>("Scripting.FileSystemObject");
}

std::string path(screen::FileSystemObject& files) {
    return files.fixedFolder("zelvo") + "/unsettled.txt";
}

/// "17 345 2024-05-06 09:08:07 pharmacy.example:1433"
std::string lineOf(const UnsettledSend& send) {
    return basics::decimalText(std::int64_t{send.DTR_PK}) + " " +
           basics::decimalText(std::int64_t{send.CBJ_PK}) + " " + send.serverTime + " " + send.server;
}

/// One server under its two usual spellings: a changed setting must not hide what is open there.
bool isSameServer(std::string_view one, std::string_view other) {
    const auto plain = [](std::string_view address) {
        std::string text = basics::foldCase(address);
        for (const char* port : {":1433", ",1433"}) {
            if (text.ends_with(port)) text.resize(text.size() - 5);
        }
        return text;
    };
    return plain(one) == plain(other);
}

/// Nothing for a line that is none of these: a damaged one must not stand in the way of every send.
std::optional<UnsettledSend> readLine(const std::string& line) {
    const std::vector<std::string> words = basics::split(line, " ");
    if (words.size() < 5) return std::nullopt;
    UnsettledSend send;
    try {
        send.DTR_PK = basics::toInt32(words[0]);
        send.CBJ_PK = basics::toInt32(words[1]);
    } catch (const basics::Fault&) {
        return std::nullopt;
    }
    send.serverTime = words[2] + " " + words[3];
    send.server = basics::join(std::vector<std::string>(words.begin() + 4, words.end()), " ");
    if (lineOf(send) != line) return std::nullopt;
    return send;
}

}  // namespace

std::vector<std::string> UnsettledSends::lines() const {
    const auto files = fileSystem(desktop_);
    std::vector<std::string> all = basics::split(files->readTextFile(path(*files)), basics::lineBreak);
    std::erase(all, "");
    return all;
}

void UnsettledSends::write(const std::vector<std::string>& lines) const {
    const auto files = fileSystem(desktop_);
    if (lines.empty()) return files->deleteFile(path(*files));
    const std::string folder = files->fixedFolder("zelvo");
    if (!files->folderExists(folder)) files->createFolder(folder);
    files->writeTextFile(path(*files), basics::join(lines, basics::lineBreak));
}

std::vector<UnsettledSend> UnsettledSends::of(std::int32_t DTR_PK, const std::string& server) const {
    std::vector<UnsettledSend> sends;
    for (const std::string& line : lines()) {
        const std::optional<UnsettledSend> send = readLine(line);
        if (send && send->DTR_PK == DTR_PK && isSameServer(send->server, server)) sends.push_back(*send);
    }
    return sends;
}

void UnsettledSends::add(const UnsettledSend& send) const {
    std::vector<std::string> all = lines();
    all.push_back(lineOf(send));
    write(all);
}

void UnsettledSends::settle(const UnsettledSend& send) const {
    std::vector<std::string> all = lines();
    std::erase(all, lineOf(send));
    write(all);
}

}  // namespace zelvo::ordering
