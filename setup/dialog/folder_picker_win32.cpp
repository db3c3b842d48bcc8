#include <windows.h>

#include <shobjidl.h>

#include "base/win32/com.h"
#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/win32/system_library.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/dialog/folder_pick.h"
#include "setup/dialog/folder_picker.h"

namespace velquin::setup {
namespace {

constexpr DWORD kPickerOptions = FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR;
static_assert(kPickerOptions == 0x868);

// The picker opens in a folder that is there, so the nearest one above a folder that is yet to be made.
std::wstring nearestFolder(std::wstring folder) {
    while (!folder.empty() && !base::folderExists(folder)) {
        std::wstring above = base::parentPath(folder);
        if (above == folder) {
            return {};
        }
        folder = std::move(above);
    }
    return folder;
}

void setStartFolder(IFileOpenDialog& picker, const std::wstring& start) {
    const std::wstring folder = nearestFolder(start);
    base::ComPtr<IShellItem> item;
    if (!folder.empty() &&
        SUCCEEDED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_IShellItem, item.put()))) {
        picker.SetFolder(item.get());
    }
}

std::wstring pathOf(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name)) || name == nullptr) {
        return {};
    }
    std::wstring path(name);
    CoTaskMemFree(name);
    return path;
}

// The picked folder; empty when the person has cancelled or a step has failed, which `result` then tells.
std::wstring runPicker(HWND owner, const std::wstring& start, const std::wstring& title, HRESULT& result) {
    base::ComPtr<IFileOpenDialog> picker;
    result = CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog, picker.put());
    if (FAILED(result)) {
        return {};
    }
    FILEOPENDIALOGOPTIONS options = 0;
    picker->GetOptions(&options);
    picker->SetOptions(options | kPickerOptions);
    picker->SetTitle(title.c_str());
    setStartFolder(*picker.get(), start);
    result = picker->Show(owner);
    base::ComPtr<IShellItem> item;
    if (SUCCEEDED(result)) {
        result = picker->GetResult(reinterpret_cast<IShellItem**>(item.put()));
    }
    return item ? pathOf(*item.get()) : std::wstring();
}

}  // namespace

std::wstring pickInstallFolder(HWND owner, const std::wstring& start, const std::wstring& title) {
    const base::ComApartment apartment;
    HRESULT result = S_OK;
    const std::wstring first = normalizePathText(start);
    const std::wstring picked = runPicker(owner, first.empty() ? defaultInstallFolder() : first, title, result);
    if (picked.empty() && result != HRESULT_FROM_WIN32(ERROR_CANCELLED) && FAILED(result)) {
        writeSetupLog(L"folder picker failed: hresult=" + std::to_wstring(static_cast<uint32_t>(result)));
    }
    return normalizePathText(productFolderIn(picked));
}

}  // namespace velquin::setup
