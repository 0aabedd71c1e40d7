#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "basics/Fault.h"
#include "screen/Desktop.h"

namespace zelvo::testing {

/// A cost page that answers what it is told, and remembers what it was asked.
struct CostPage {
    std::string answer;
    std::optional<std::string> fault;
    std::function<void()> whileAsked = [] {};
    std::vector<screen::OrderCostText::CostRequest> requests;
    std::vector<screen::OrderCostText::UpdateRequest> updates;

    /// A good answer: total, ten amounts, mileage; each note is "note N" and a second line.
    static std::string priced(std::int64_t total, std::int64_t mileage = 0) {
        std::string text = "<html>[START]1ok/*/" + std::to_string(total) + "&note 0";
        for (int line = 1; line <= 10; ++line) {
            text += "/*/" + std::to_string(line == 2 ? total : 0) + "&amp;note " + std::to_string(line) +
                    "vbCrLfmore";
        }
        return text + "/*/" + std::to_string(mileage) + "[END]</html>";
    }
    /// Answers in the place of the pharmacy's.
    void standIn(screen::Desktop& desktop) {
        desktop.components().add("OrderCostText.clsOrderCostText",
                                 [this] { return std::make_unique<Component>(*this); });
    }

private:
    struct Component : screen::OrderCostText {
        explicit Component(CostPage& owner) : page(owner) {}
        std::string ChubangJunCost(const CostRequest& request) override {
            page.requests.push_back(request);
            return page.answered();
        }
        std::string ChubangJunCostUpdate(const UpdateRequest& request) override {
            page.updates.push_back(request);
            return page.answered();
        }
        CostPage& page;
    };
    std::string answered() const {
        whileAsked();
        if (fault) throw basics::Fault(*fault);
        return answer;
    }
};

/// The files of the clinic's machine, and a disk that may be full.
struct LogFiles {
    std::map<std::string, std::string> logs;
    bool diskFull = false;

    void standIn(screen::Desktop& desktop) {
        desktop.components().add("Scripting.FileSystemObject",
                                 [this] { return std::make_unique<Component>(*this); });
    }

private:
    struct Component : screen::FileSystemObject {
        explicit Component(LogFiles& owner) : files(owner) {}
        std::string fixedFolder(std::string_view name) override { return "/logs/" + std::string(name); }
        bool folderExists(const std::string&) override { return false; }
        void createFolder(const std::string&) override {
            if (files.diskFull) throw basics::Fault("disk full");
        }
        void writeTextFile(const std::string& path, std::string_view text) override {
            files.logs[path] = text;
        }
        void keepTextFile(const std::string& path, std::string_view text) override {
            writeTextFile(path, text);
        }
        std::vector<std::string> fileNames(const std::string& folder) override {
            std::vector<std::string> names;
            for (const auto& [path, text] : files.logs) {
                if (path.starts_with(folder + "/")) names.push_back(path.substr(folder.size() + 1));
            }
            return names;
        }
        std::string readTextFile(const std::string& path) override {
            return files.logs.contains(path) ? files.logs[path] : std::string();
        }
        void deleteFile(const std::string& path) override { files.logs.erase(path); }
        LogFiles& files;
    };
};

}  // namespace zelvo::testing
