#include <windows.h>

#include <shlobj.h>

#include <propkey.h>

#include "base/win32/com.h"
#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "setup/shortcut.h"

namespace velquin::setup {
namespace {

HRESULT stampLink(IShellLinkW& link, const std::wstring& appUserModelId) {
    base::ComPtr<IPropertyStore> store;
    const HRESULT result = link.QueryInterface(IID_IPropertyStore, store.put());
    return FAILED(result) ? result : stampAppUserModelId(*store.get(), appUserModelId);
}

HRESULT saveLink(const std::wstring& linkPath, const std::wstring& target, const std::wstring& arguments,
                 const std::wstring& description, const std::wstring& appUserModelId) {
    const base::ComApartment apartment;
    if (!apartment.usable()) {
        return apartment.result();
    }
    base::ComPtr<IShellLinkW> link;
    base::ComPtr<IPersistFile> file;
    HRESULT result = CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.put());
    const auto then = [&result](auto step) {
        if (SUCCEEDED(result)) {
            result = step();
        }
    };
    then([&] { return link->SetPath(target.c_str()); });
    then([&] { return link->SetArguments(arguments.c_str()); });
    then([&] { return link->SetWorkingDirectory(base::parentPath(target).c_str()); });
    then([&] { return link->SetDescription(description.c_str()); });
    then([&] { return link->SetIconLocation(target.c_str(), 0); });
    then([&] { return link->SetShowCmd(SW_SHOWMINNOACTIVE); });
    then([&] { return appUserModelId.empty() ? S_OK : stampLink(*link.get(), appUserModelId); });
    then([&] { return link->QueryInterface(IID_IPersistFile, file.put()); });
    then([&] { return file->Save(linkPath.c_str(), TRUE); });
    return result;
}

std::wstring hexCode(HRESULT result) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text = L"0x";
    for (int shift = 28; shift >= 0; shift -= 4) {
        text.push_back(kDigits[(static_cast<unsigned long>(result) >> shift) & 0xF]);
    }
    return text;
}

}  // namespace

long stampAppUserModelId(IPropertyStore& store, const std::wstring& appUserModelId) {
    // The store copies the value, so the text may stay ours.
    PROPVARIANT value{};
    value.vt = VT_LPWSTR;
    value.pwszVal = const_cast<wchar_t*>(appUserModelId.c_str());
    const HRESULT result = store.SetValue(PKEY_AppUserModel_ID, value);
    return FAILED(result) ? result : store.Commit();
}

bool createShortcut(const std::wstring& linkPath, const std::wstring& target, const std::wstring& arguments,
                    const std::wstring& description, const std::wstring& appUserModelId) {
    base::createFolders(base::parentPath(linkPath));
    const HRESULT result = saveLink(linkPath, target, arguments, description, appUserModelId);
    if (FAILED(result)) {
        writeSetupLog(L"shortcut failed: " + linkPath + L" hresult=" + hexCode(result));
        return false;
    }
    writeSetupLog(L"shortcut created: " + linkPath + L" -> " + target);
    return true;
}

bool deleteShortcut(const std::wstring& linkPath) {
    if (DeleteFileW(base::extendedLengthPath(linkPath).c_str())) {
        writeSetupLog(L"shortcut deleted: " + linkPath);
        return true;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
        writeSetupLog(L"shortcut not there: " + linkPath);
        return true;
    }
    writeSetupLog(L"shortcut delete failed: " + linkPath + L" error=" + std::to_wstring(error));
    return false;
}

}  // namespace velquin::setup
