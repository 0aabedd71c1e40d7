#include "Registration.h"

#include <windows.h>

#include <initguid.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "Com.h"
#include "DoctorZELVO_h.h"
#include "basics/Fault.h"

namespace automation {

namespace {

constexpr auto programName = L"DoctorZELVO.clsZELVOInterface";
constexpr auto classes = L"Software\\Classes\\";

/// A chart sees the half of its own width, of the classes and interfaces at the least.
constexpr std::array<REGSAM, 2> halves = {KEY_WOW64_64KEY, KEY_WOW64_32KEY};

struct Entry {
    std::wstring key, name, value;
};

std::wstring words(const GUID& guid) {
    std::array<wchar_t, 39> text{};
    ::StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring classKey() {
    return L"CLSID\\" + words(__uuidof(clsZELVOInterface));
}

std::wstring typesKey() {
    return L"TypeLib\\" + words(LIBID_DoctorZELVO);
}

std::wstring interfaceKey(const GUID& which) {
    return L"Interface\\" + words(which);
}

/// How calls of an interface are carried between programs: by its description in the type library.
void addInterface(std::vector<Entry>& entries, const GUID& which, const wchar_t* name,
                  const wchar_t* carrier) {
    const std::wstring key = interfaceKey(which);
    entries.push_back({key, L"", name});
    entries.push_back({key + L"\\ProxyStubClsid32", L"", carrier});
    entries.push_back({key + L"\\TypeLib", L"", words(LIBID_DoctorZELVO)});
    entries.push_back({key + L"\\TypeLib", L"Version", L"1.0"});
}

std::vector<Entry> entriesOf(const std::wstring& program) {
    const std::wstring folder = std::filesystem::path(program).parent_path().wstring();
    std::vector<Entry> entries = {
        {programName, L"", programName},
        {std::wstring(programName) + L"\\CLSID", L"", words(__uuidof(clsZELVOInterface))},
        {classKey(), L"", programName},
        {classKey() + L"\\LocalServer32", L"", L"\"" + program + L"\""},
        {classKey() + L"\\ProgID", L"", programName},
        {classKey() + L"\\Programmable", L"", L""},
        {classKey() + L"\\TypeLib", L"", words(LIBID_DoctorZELVO)},
        {classKey() + L"\\Version", L"", L"1.0"},
        {typesKey() + L"\\1.0", L"", L"ZELVO"},
        {typesKey() + L"\\1.0\\0\\win32", L"", program},
        {typesKey() + L"\\1.0\\0\\win64", L"", program},
        {typesKey() + L"\\1.0\\FLAGS", L"", L"0"},
        {typesKey() + L"\\1.0\\HELPDIR", L"", folder},
    };
    addInterface(entries, __uuidof(_clsZELVOInterface), L"_clsZELVOInterface",
                 L"{00020424-0000-0000-C000-000000000046}");
    addInterface(entries, __uuidof(__clsZELVOInterface), L"__clsZELVOInterface",
                 L"{00020420-0000-0000-C000-000000000046}");
    return entries;
}

struct CloseKey {
    void operator()(HKEY key) const { ::RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

void check(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS) {
        throw zelvo::basics::Fault(std::string(what) + " failed with " + std::to_string(status));
    }
}

void write(HKEY root, const Entry& entry, REGSAM half) {
    HKEY opened = nullptr;
    check(::RegCreateKeyExW(root, (classes + entry.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE | half, nullptr,
                            &opened, nullptr),
          "RegCreateKeyEx");
    const Key key(opened);
    const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
    check(::RegSetValueExW(key.get(), entry.name.c_str(), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(entry.value.c_str()), bytes),
          "RegSetValueEx");
}

void writeAll(HKEY root) {
    const auto entries = entriesOf(ownPath());
    for (const REGSAM half : halves) {
        for (const Entry& entry : entries) write(root, entry, half);
    }
}

void removeTree(HKEY root, const std::wstring& name, REGSAM half) {
    const std::wstring path = classes + name;
    HKEY opened = nullptr;
    const LSTATUS found = ::RegOpenKeyExW(root, path.c_str(), 0, KEY_ALL_ACCESS | half, &opened);
    if (found == ERROR_FILE_NOT_FOUND) return;
    check(found, "RegOpenKeyEx");
    {
        const Key key(opened);
        check(::RegDeleteTreeW(key.get(), nullptr), "RegDeleteTree");
    }
    // The tree may have been this half's and the other's at once.
    const LSTATUS removed = ::RegDeleteKeyExW(root, path.c_str(), half, 0);
    if (removed != ERROR_FILE_NOT_FOUND) check(removed, "RegDeleteKeyEx");
}

/// Whether the classes below `path` lead a chart of this width to this program, and not to another copy.
bool leadHere(HKEY root, const std::wstring& path, REGSAM half) {
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(root, (path + classKey() + L"\\LocalServer32").c_str(), 0, KEY_READ | half,
                        &opened) != ERROR_SUCCESS) {
        return false;
    }
    const Key key(opened);
    constexpr std::size_t longestPath = 32768;
    std::wstring found(longestPath, L'\0');
    auto bytes = static_cast<DWORD>(found.size() * sizeof(wchar_t));
    if (::RegGetValueW(key.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, found.data(), &bytes) !=
        ERROR_SUCCESS) {
        return false;
    }
    found.resize(bytes / sizeof(wchar_t) - 1);
    std::erase(found, L'"');
    // One file has several names: in whatever case, short and long.
    std::error_code missing;
    return std::filesystem::equivalent(found, ownPath(), missing);
}

void removeOwn(HKEY root) {
    const std::vector<std::wstring> trees = {programName, classKey(), typesKey(),
                                             interfaceKey(__uuidof(_clsZELVOInterface)),
                                             interfaceKey(__uuidof(__clsZELVOInterface))};
    std::vector<REGSAM> own;
    // Both are looked at first: what they have in common says whose they are.
    std::copy_if(halves.begin(), halves.end(), std::back_inserter(own),
                 [&](REGSAM half) { return leadHere(root, classes, half); });
    for (const REGSAM half : own) {
        for (const std::wstring& tree : trees) removeTree(root, tree, half);
    }
}

}  // namespace

void enterInRegistry() {
    writeAll(HKEY_CURRENT_USER);
    // Wine 8 looks for no class among the user's own.
    if (!leadHere(HKEY_CLASSES_ROOT, L"", KEY_WOW64_64KEY)) writeAll(HKEY_LOCAL_MACHINE);
}

void removeFromRegistry() {
    removeOwn(HKEY_CURRENT_USER);
    removeOwn(HKEY_LOCAL_MACHINE);
}

}  // namespace automation
