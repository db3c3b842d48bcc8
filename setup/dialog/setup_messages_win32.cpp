#include <windows.h>

#include "base/argument_quoting.h"
#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/configuration.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/setup_look.h"
#include "setup/dialog/setup_messages.h"
#include "setup/window_icon.h"
#include "tavi/controls/message_box.h"

namespace velquin::setup {
namespace {

// Shows the log in its folder, which Explorer does with the user's own rights.
void showLog() {
    const std::wstring explorer = base::joinPath(base::windowsFolder(), L"explorer.exe");
    const std::wstring command = base::quotePath(explorer) + L" /select," + base::quotePath(setupLogFile());
    if (!base::startProcess(explorer, command, false)) {
        const DWORD error = GetLastError();
        writeSetupLog(L"log not shown: error=" + std::to_wstring(error));
    }
}

}  // namespace

void showSetupMessageBox(HINSTANCE instance, HWND owner, const ProductConfig& config, const std::wstring& title,
                         const std::wstring& message, bool isError) {
    const tavi::StyleSheet sheet = useSetupLook(config);
    const tavi::NamedStyle* const popup = sheet.find(L"vc-popup");
    tavi::MessageBoxOptions options{
        .title = title,
        .message = message,
        .kind = isError ? tavi::MessageBoxKind::kError : tavi::MessageBoxKind::kInformation,
        .buttons = {{.id = L"ok", .caption = localizedText(config, text::kClose)}},
        .popupStyle = popup != nullptr ? popup->variant : L"default",
        .rightToLeft = isRightToLeftLanguage(effectiveLanguage(config)),
        .created = [instance](HWND box) { applySetupWindowIcon(box, instance); },
    };
    // Where no log can be written there is none to show.
    if (isError && base::fileExists(setupLogFile())) {
        options.buttons.push_back(
            {.id = L"open-log", .caption = localizedText(config, text::kOpenLog), .action = [](HWND) { showLog(); }});
    }
    tavi::showMessageBox(instance, owner, options);
}

void showOperationResult(HINSTANCE instance, const ProductConfig& config, int textId, bool isError) {
    const int message = isError ? text::kOperationFailed : text::kOperationSucceeded;
    showSetupMessageBox(instance, nullptr, config, localizedText(config, textId), localizedText(config, message),
                        isError);
}

}  // namespace velquin::setup
