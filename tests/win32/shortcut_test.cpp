#include "setup/shortcut.h"

#include <shlobj.h>

#include <propkey.h>

#include <thread>

#include "base/win32/com.h"
#include "base/win32/files.h"
#include "core/product.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using velquin::setup::createShortcut;
using velquin::setup::deleteShortcut;

class Shortcut : public UnitTest {};

struct Link {
    std::wstring target, arguments, folder, description, icon;
    int iconIndex = -1;
};

Link readLink(const std::wstring& path) {
    const base::ComApartment apartment;
    base::ComPtr<IShellLinkW> shellLink;
    base::ComPtr<IPersistFile> file;
    Link link;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, shellLink.put())) ||
        FAILED(shellLink->QueryInterface(IID_IPersistFile, file.put())) ||
        FAILED(file->Load(path.c_str(), STGM_READ))) {
        ADD_FAILURE() << "the link cannot be read";
        return link;
    }
    wchar_t text[1024] = {};
    const auto read = [&text](HRESULT result) { return SUCCEEDED(result) ? std::wstring(text) : L"failed"; };
    link.target = read(shellLink->GetPath(text, std::size(text), nullptr, SLGP_RAWPATH));
    link.arguments = read(shellLink->GetArguments(text, std::size(text)));
    link.folder = read(shellLink->GetWorkingDirectory(text, std::size(text)));
    link.description = read(shellLink->GetDescription(text, std::size(text)));
    link.icon = read(shellLink->GetIconLocation(text, std::size(text), &link.iconIndex));
    return link;
}

// Where the show command stands in a link file (MS-SHLLINK, ShellLinkHeader). IShellLinkW gives a folded value.
constexpr size_t kShowCommandOffset = 0x3C;

TEST_F(Shortcut, HoldsWhatItWasGiven) {
    const std::wstring file = path(L"new folder\\Програми\\Link.lnk");
    const std::wstring target = path(L"Prográmme und mehr\\Vélquin.exe");
    writeFile(target, "program");
    ASSERT_TRUE(createShortcut(file, target, LR"(--mount --config "C:\a b\c.json")", L"Manage – Програми",
                               velquin::kAppUserModelId));
    const Link link = readLink(file);
    EXPECT_EQ(link.target, target);
    EXPECT_EQ(link.arguments, LR"(--mount --config "C:\a b\c.json")");
    EXPECT_EQ(link.folder, path(L"Prográmme und mehr"));
    EXPECT_EQ(link.description, L"Manage – Програми");
    EXPECT_EQ(link.icon, target);
    EXPECT_EQ(link.iconIndex, 0);
    EXPECT_EQ(readFile(file).at(kShowCommandOffset), SW_SHOWMINNOACTIVE);

    // A second one replaces the first with all its parts; its target need not be there.
    ASSERT_TRUE(createShortcut(file, LR"(C:\Other\App.exe)", L"", L"", L""));
    const Link replaced = readLink(file);
    EXPECT_EQ(replaced.target, LR"(C:\Other\App.exe)");
    EXPECT_EQ(replaced.arguments, L"");
    EXPECT_EQ(replaced.folder, LR"(C:\Other)");
    EXPECT_EQ(replaced.description, L"");
    EXPECT_THAT(log(), ElementsAre(L"shortcut created: " + file + L" -> " + target,
                                   L"shortcut created: " + file + LR"( -> C:\Other\App.exe)"));
}

TEST_F(Shortcut, PlaceThatCannotBeWrittenToFails) {
    writeFile(path(L"file"), "in the way");
    base::createFolders(path(L"folder.lnk"));
    const std::wstring belowFile = path(L"file\\Link.lnk");
    for (const std::wstring& link : {belowFile, path(L"folder.lnk")}) {
        EXPECT_FALSE(createShortcut(link, LR"(C:\App.exe)", L"", L"", L""));
        EXPECT_FALSE(base::fileExists(link));
    }
    EXPECT_THAT(log(), ElementsAre(L"shortcut failed: " + belowFile + L" hresult=0x80070003",
                                   testing::StartsWith(L"shortcut failed: " + path(L"folder.lnk") + L" hresult=0x8")));
}

TEST_F(Shortcut, LeavesComOfTheThreadAsItWas) {
    for (const bool initialised : {false, true}) {
        std::thread([&] {
            if (initialised) {
                ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
            }
            EXPECT_TRUE(createShortcut(path(L"Link.lnk"), LR"(C:\App.exe)", L"", L"", velquin::kAppUserModelId));
            APTTYPE type{};
            APTTYPEQUALIFIER qualifier{};
            EXPECT_EQ(CoGetApartmentType(&type, &qualifier), initialised ? S_OK : CO_E_NOTINITIALIZED);
            if (initialised) {
                EXPECT_EQ(type, APTTYPE_MTA);
                CoUninitialize();
            }
        }).join();
    }
}

TEST_F(Shortcut, OnesThatAreMissingCountAsDeleted) {
    const std::wstring file = path(L"Link.lnk");
    const std::wstring folder = path(L"Folder.lnk");
    writeFile(file, "link");
    base::createFolders(folder);
    EXPECT_TRUE(deleteShortcut(file));
    EXPECT_FALSE(base::pathExists(file));
    EXPECT_TRUE(deleteShortcut(file));
    const std::wstring nowhere = path(L"no folder\\Link.lnk");
    EXPECT_TRUE(deleteShortcut(nowhere));
    EXPECT_FALSE(deleteShortcut(folder));
    EXPECT_THAT(log(), ElementsAre(L"shortcut deleted: " + file, L"shortcut not there: " + file,
                                   L"shortcut not there: " + nowhere,
                                   testing::StartsWith(L"shortcut delete failed: " + folder + L" error=")));
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
