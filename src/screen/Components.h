#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basics/Fault.h"
#include "screen/CodePage.h"
#include "screen/WebFetch.h"

namespace zelvo::screen {

/// An object of the clinic's machine, made by the class name that its kind bears.
class Component {
public:
    virtual ~Component() = default;
};

/// Asks the pharmacy's cost pages. Blocks until the answer is there; throws Fault with a plain Korean
/// sentence when none comes.
class OrderCostText : public Component {
public:
    static constexpr const char* className = "OrderCostText.clsOrderCostText";
    struct CostRequest {
        std::int16_t kind = 1;
        std::string url, doctorKey, besongMethod, besongZip, besongJuso, jobListKey, drugText, chubsu,
            drugPrice, tjmlKey, tjalSlot, pouchAmount, pouchTotal, payMethod;
    };
    virtual std::string ChubangJunCost(const CostRequest& request) = 0;

    struct UpdateRequest {
        std::int16_t kind = 1;
        std::string url, doctorKey, orderKey, value5, value6, value7, value8, besongMethod, besongZip,
            besongJuso, payMethod;
    };
    virtual std::string ChubangJunCostUpdate(const UpdateRequest& request) = 0;
};

/// The login and change-password dialogs.
class AccountPrompt : public Component {
public:
    static constexpr const char* className = "AccountPrompt.clsAccountPrompt";
    /// True if the user confirmed; then the texts hold what was typed.
    virtual bool Login(std::string& id, std::string& password) = 0;
    virtual bool ChangePassword(const std::string& oldPassword, std::string& newPassword) = 0;
};

/// The postal code search dialog; left and top in twips.
class PostalLookup : public Component {
public:
    static constexpr const char* className = "PostalLookup.clsPostalLookup";
    virtual bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                         std::int32_t& top) = 0;
};

/// The editor of the dosage sheet. True if the user accepted.
class EatGuideEditor : public Component {
public:
    static constexpr const char* className = "EatGuideEditor";
    virtual bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf,
                      std::string& hospitalName, std::string& phoneNo) = 0;
};

/// A file that this session holds, as long as the object lives and however the program ends: whoever else
/// asks for it does not get it.
class HeldFile {
public:
    virtual ~HeldFile() = default;
    virtual std::string path() const = 0;
    /// Throws Fault when it can't be read.
    virtual std::string text() const = 0;
    /// Takes the file away. Throws Fault when that can't be done.
    virtual void remove() = 0;
};

/// Text files of the clinic's machine. What can't be done is a Fault.
class FileSystemObject : public Component {
public:
    static constexpr const char* className = "Scripting.FileSystemObject";
    /// Path of a fixed folder of this system ("zelvo"), in the user's data folder.
    virtual std::string fixedFolder(std::string_view name) = 0;
    /// Nothing happens where it stands.
    virtual void createFolder(const std::string& path) = 0;
    /// The names in a folder, sorted; none where no folder stands.
    virtual std::vector<std::string> namesIn(const std::string& folder) = 0;
    /// Makes a file and holds it: it is whole on the disk when this returns, unless it is empty. Nothing when
    /// the name is taken.
    virtual std::unique_ptr<HeldFile> makeFile(const std::string& path, std::string_view text) = 0;
    /// Holds a file that stands. Nothing when somebody else holds it, or it has just been taken away; what is
    /// no plain file is a Fault.
    virtual std::unique_ptr<HeldFile> holdFile(const std::string& path) = 0;
    /// Whether somebody holds a file who has found it there, and not who has made it.
    virtual bool isHeldByFinder(const std::string& path) = 0;
    /// Makes or replaces a file that changes with every key: whole or as it stood before, on the disk when
    /// the system likes.
    virtual void keepTextFile(const std::string& path, std::string_view text) = 0;
    /// The whole text, "" for a file that is not there.
    virtual std::string readTextFile(const std::string& path) = 0;
    virtual void deleteFile(const std::string& path) = 0;
    /// Takes away what programs that were killed left half-written.
    virtual void clearHalfWritten(const std::string& folder) = 0;
};

/// The factory by class name. A host may register its own component under a name.
class Components {
public:
    using Maker = std::function<std::unique_ptr<Component>()>;
    void add(std::string className, Maker maker) { makers_[std::move(className)] = std::move(maker); }

    /// A fresh object. Throws Fault when the class is not there or is another kind of thing.
    template <class Kind>
    std::unique_ptr<Kind> make() const {
        std::unique_ptr<Component> made = create(Kind::className);
        if (auto* kind = dynamic_cast<Kind*>(made.get())) {
            static_cast<void>(made.release());  // the same object, from here on its own kind
            return std::unique_ptr<Kind>(kind);
        }
        throw missing(Kind::className);
    }
    /// What says that an object of this class can't be made.
    static basics::Fault missing(const std::string& className);

    /// The machine's code pages, for the bytes of documents that old word processors wrote.
    const CodePages& codePages() const { return codePages_; }
    void setCodePages(CodePages pages) { codePages_ = std::move(pages); }
    /// The machine's way into the web, for pages that are shown in a window.
    const WebFetch& webFetch() const { return webFetch_; }
    void setWebFetch(WebFetch fetch) { webFetch_ = std::move(fetch); }

private:
    std::unique_ptr<Component> create(const std::string& className) const;

    std::map<std::string, Maker> makers_;
    CodePages codePages_;
    WebFetch webFetch_;
};

}  // namespace zelvo::screen
