// machine_report OUT.json [LINK...]: writes what the setup may have changed on this machine as JSON: the registry keys
// of the product, its shortcuts (and any LINK given) with their content, the deletions pending for the next restart,
// and the installed versions that Windows Installer knows.
#include <windows.h>

#include <shlobj.h>

#include <msi.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/json_text.h"
#include "base/text.h"
#include "base/win32/com.h"
#include "base/win32/files.h"
#include "base/win32/held_file.h"
#include "base/win32/registry.h"
#include "base/win32/unique_handle.h"
#include "base/windows_path.h"
#include "core/pending_renames.h"
#include "core/product.h"
#include "core/product_paths.h"

namespace {

std::wstring quoted(const std::wstring& text) {
    return L"\"" + base::escapeJson(text) + L"\"";
}

std::wstring list(const std::vector<std::wstring>& items, wchar_t open, wchar_t close) {
    std::wstring out(1, open);
    for (size_t i = 0; i < items.size(); ++i) {
        out += (i > 0 ? L",\n" : L"\n") + items[i];
    }
    return out + L"\n" + close;
}

std::wstring member(const std::wstring& name, const std::wstring& json) {
    return quoted(name) + L": " + json;
}

std::wstring valueJson(DWORD type, const std::vector<BYTE>& data) {
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        return std::to_wstring(*reinterpret_cast<const DWORD*>(data.data()));
    }
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        std::wstring text(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
        return quoted(text.substr(0, text.find(L'\0')));
    }
    return quoted(L"(type " + std::to_wstring(type) + L")");
}

// Adds one member a key: its path and an object of its values; then the keys below it.
void reportKey(const std::wstring& path, std::vector<std::wstring>& out) {
    base::UniqueRegistryKey key;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) {
        return;
    }
    std::vector<std::wstring> values;
    std::vector<wchar_t> name(16384);
    std::vector<BYTE> data(1 << 16);
    for (DWORD i = 0;; ++i) {
        auto nameLength = static_cast<DWORD>(name.size());
        auto dataLength = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key.get(), i, name.data(), &nameLength, nullptr, &type, data.data(), &dataLength) !=
            ERROR_SUCCESS) {
            break;
        }
        values.push_back(member(name.data(), valueJson(type, {data.begin(), data.begin() + dataLength})));
    }
    out.push_back(member(path, list(values, L'{', L'}')));
    for (DWORD i = 0;; ++i) {
        auto nameLength = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key.get(), i, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        reportKey(base::joinPath(path, name.data()), out);
    }
}

// The show command as the file has it, a number at a fixed place of its header: GetShowCmd folds it into three values.
DWORD showCommandOf(const std::wstring& path) {
    constexpr size_t kOffset = 0x3C;
    const auto bytes = base::readWholeFile(path);
    DWORD command = 0;
    if (bytes && bytes->size() >= kOffset + sizeof(command)) {
        memcpy(&command, bytes->data() + kOffset, sizeof(command));
    }
    return command;
}

std::wstring linkJson(const std::wstring& path) {
    base::ComPtr<IShellLinkW> link;
    base::ComPtr<IPersistFile> file;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.put())) ||
        FAILED(link->QueryInterface(IID_IPersistFile, file.put())) || FAILED(file->Load(path.c_str(), STGM_READ))) {
        return L"null";
    }
    wchar_t text[2048] = {};
    constexpr int kLength = static_cast<int>(std::size(text));
    std::vector<std::wstring> members;
    const auto add = [&](const wchar_t* name, HRESULT result) {
        members.push_back(member(name, SUCCEEDED(result) ? quoted(text) : L"null"));
    };
    // The item list and not GetPath: that is what Explorer follows, and it holds the path in Unicode, where the text
    // beside it is in the code page of whoever wrote the link.
    LPITEMIDLIST items = nullptr;
    const HRESULT listed = link->GetIDList(&items);
    add(L"target", listed == S_OK && SHGetPathFromIDListW(items, text) ? S_OK : E_FAIL);
    CoTaskMemFree(items);
    add(L"arguments", link->GetArguments(text, kLength));
    add(L"folder", link->GetWorkingDirectory(text, kLength));
    add(L"description", link->GetDescription(text, kLength));
    int number = -1;
    add(L"icon", link->GetIconLocation(text, kLength, &number));
    members.push_back(member(L"iconIndex", std::to_wstring(number)));
    members.push_back(member(L"show", std::to_wstring(showCommandOf(path))));
    return list(members, L'{', L'}');
}

std::wstring shortcutsJson(const std::vector<std::wstring>& more) {
    const base::ComApartment apartment;
    const velquin::UserPaths paths = velquin::userPaths();
    std::vector<std::wstring> links = {paths.startMenuShortcut(), paths.desktopShortcut(), paths.startupShortcut(),
                                       paths.legacyStartMenuShortcut(), paths.legacyStartupShortcut()};
    links.insert(links.end(), more.begin(), more.end());
    std::vector<std::wstring> members;
    for (const std::wstring& path : links) {
        if (base::fileExists(path)) {
            members.push_back(member(path, linkJson(path)));
        }
    }
    return list(members, L'{', L'}');
}

std::wstring pendingJson() {
    std::vector<std::wstring> items;
    base::UniqueRegistryKey key;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, LR"(SYSTEM\CurrentControlSet\Control\Session Manager)", 0, KEY_READ, key.put());
    std::wstring stored(1 << 15, L'\0');
    auto bytes = static_cast<DWORD>(stored.size() * sizeof(wchar_t));
    if (RegQueryValueExW(key.get(), L"PendingFileRenameOperations", nullptr, nullptr,
                         reinterpret_cast<BYTE*>(stored.data()), &bytes) == ERROR_SUCCESS) {
        stored.resize(bytes / sizeof(wchar_t));
        const std::vector<std::wstring> strings = velquin::parsePendingRenames(stored);
        for (size_t i = 0; i + 1 < strings.size(); i += 2) {
            items.push_back(list({quoted(strings[i]), quoted(strings[i + 1])}, L'[', L']'));
        }
    }
    return list(items, L'[', L']');
}

std::wstring productsJson() {
    std::vector<std::wstring> items;
    wchar_t code[39];
    for (DWORD i = 0; MsiEnumRelatedProductsW(velquin::kUpgradeCode, 0, i, code) == ERROR_SUCCESS; ++i) {
        wchar_t version[64] = {};
        DWORD length = static_cast<DWORD>(std::size(version));
        MsiGetProductInfoW(code, L"VersionString", version, &length);
        items.push_back(list({quoted(code), quoted(version)}, L'[', L']'));
    }
    return list(items, L'[', L']');
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 2) {
        return 2;
    }
    std::vector<std::wstring> keys;
    for (const wchar_t* path :
         {velquin::kUninstallKey, LR"(Software\Vantorik)",
          LR"(Software\Microsoft\Windows\CurrentVersion\App Paths\Velquin.exe)",
          LR"(Software\Microsoft\Windows\CurrentVersion\App Paths\VelquinSetup.exe)",
          LR"(Software\Classes\Applications\Velquin.exe)", LR"(Software\Classes\Applications\VelquinSetup.exe)"}) {
        reportKey(path, keys);
    }
    const std::wstring report =
        list({member(L"registry", list(keys, L'{', L'}')), member(L"shortcuts", shortcutsJson({argv + 2, argv + argc})),
              member(L"pending", pendingJson()), member(L"products", productsJson())},
             L'{', L'}');
    const std::string utf8 = base::toUtf8(report);
    const base::UniqueFile file = base::openFile(argv[1], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(utf8))) ? 0 : 1;
}
