#include "setup/shortcut.h"

#include <shlobj.h>

#include <propkey.h>

#include "base/win32/com.h"
#include "base/win32/files.h"
#include "core/product.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using testing::StartsWith;
using velquin::setup::createShortcut;
using velquin::setup::deleteShortcut;

class Shortcut : public UnitTest {};

// Target, arguments, working folder, description and icon file; nothing when the link cannot be read.
std::vector<std::wstring> readLink(const std::wstring& path) {
    const base::ComApartment apartment;
    base::ComPtr<IShellLinkW> link;
    base::ComPtr<IPersistFile> file;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.put())) ||
        FAILED(link->QueryInterface(IID_IPersistFile, file.put())) || FAILED(file->Load(path.c_str(), STGM_READ))) {
        return {};
    }
    constexpr int kLength = 1024;
    wchar_t texts[5][kLength] = {};
    int icon = -1;
    link->GetPath(texts[0], kLength, nullptr, SLGP_RAWPATH);
    link->GetArguments(texts[1], kLength);
    link->GetWorkingDirectory(texts[2], kLength);
    link->GetDescription(texts[3], kLength);
    link->GetIconLocation(texts[4], kLength, &icon);
    EXPECT_EQ(icon, 0);
    return {std::begin(texts), std::end(texts)};
}

TEST_F(Shortcut, HoldsWhatItWasGivenUntilItIsDeleted) {
    const std::wstring file = path(L"new folder\\Програми\\Link.lnk");
    const std::wstring target = path(L"Prográmme und mehr\\Vélquin.exe");
    const std::wstring arguments = LR"(--mount --config "C:\a b\c.json")";
    ASSERT_TRUE(createShortcut(file, target, arguments, L"Manage – Програми", velquin::kAppUserModelId));
    EXPECT_THAT(readLink(file),
                ElementsAre(target, arguments, path(L"Prográmme und mehr"), L"Manage – Програми", target));
    // Where the show command stands in a link file. IShellLinkW gives a folded value.
    constexpr size_t kShowCommandOffset = 0x3C;
    EXPECT_EQ(readFile(file).at(kShowCommandOffset), SW_SHOWMINNOACTIVE);
    // A second one replaces the first with all its parts.
    ASSERT_TRUE(createShortcut(file, LR"(C:\Other\App.exe)", L"", L"", L""));
    EXPECT_THAT(readLink(file), ElementsAre(LR"(C:\Other\App.exe)", L"", LR"(C:\Other)", L"", LR"(C:\Other\App.exe)"));

    EXPECT_TRUE(deleteShortcut(file));
    EXPECT_FALSE(base::pathExists(file));
    EXPECT_TRUE(deleteShortcut(file)) << "a missing one counts as deleted";
    EXPECT_FALSE(deleteShortcut(folder_));
    writeFile(path(L"file"), "in the way");
    EXPECT_FALSE(createShortcut(path(L"file\\Link.lnk"), target, L"", L"", L""));
    EXPECT_FALSE(createShortcut(folder_, target, L"", L"", L""));
    EXPECT_THAT(log(), ElementsAre(L"shortcut created: " + file + L" -> " + target,
                                   L"shortcut created: " + file + LR"( -> C:\Other\App.exe)",
                                   L"shortcut deleted: " + file, L"shortcut not there: " + file,
                                   StartsWith(L"shortcut delete failed: " + folder_ + L" error="),
                                   L"shortcut failed: " + path(L"file\\Link.lnk") + L" hresult=0x80070003",
                                   StartsWith(L"shortcut failed: " + folder_ + L" hresult=0x8")));
}

// A property store that remembers what was done with it. It lives on the stack, so nobody has to count references.
class RecordingStore : public IPropertyStore {
public:
    explicit RecordingStore(HRESULT setResult, HRESULT commitResult = S_OK)
        : setResult_(setResult), commitResult_(commitResult) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetCount(DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAt(DWORD, PROPERTYKEY*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetValue(REFPROPERTYKEY, PROPVARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetValue(REFPROPERTYKEY key, REFPROPVARIANT value) override {
        const bool isAppId = IsEqualGUID(key.fmtid, PKEY_AppUserModel_ID.fmtid) && key.pid == PKEY_AppUserModel_ID.pid;
        calls.push_back(std::wstring(isAppId ? L"set id " : L"set another key ") +
                        (value.vt == VT_LPWSTR ? value.pwszVal : L"of another type"));
        return setResult_;
    }
    HRESULT STDMETHODCALLTYPE Commit() override {
        calls.emplace_back(L"commit");
        return commitResult_;
    }

    std::vector<std::wstring> calls;

private:
    HRESULT setResult_;
    HRESULT commitResult_;
};

TEST(ShortcutStamp, SetsTheApplicationIdAndCommitsItOnce) {
    RecordingStore store(S_OK);
    EXPECT_EQ(velquin::setup::stampAppUserModelId(store, L"Some.Product"), S_OK);
    EXPECT_THAT(store.calls, ElementsAre(L"set id Some.Product", L"commit"));
    RecordingStore refusing(E_ACCESSDENIED);
    EXPECT_EQ(velquin::setup::stampAppUserModelId(refusing, L"Some.Product"), E_ACCESSDENIED);
    EXPECT_THAT(refusing.calls, ElementsAre(L"set id Some.Product"));
    RecordingStore full(S_OK, STG_E_MEDIUMFULL);
    EXPECT_EQ(velquin::setup::stampAppUserModelId(full, L"Some.Product"), STG_E_MEDIUMFULL);
}

}  // namespace
