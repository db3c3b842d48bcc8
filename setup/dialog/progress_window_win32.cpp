#include <windows.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <semaphore>
#include <system_error>
#include <thread>
#include <utility>

#include "base/text.h"
#include "base/win32/com.h"
#include "base/win32/system_library.h"
#include "core/configuration.h"
#include "core/log.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/dialog_model.h"
#include "setup/dialog/progress_steps.h"
#include "setup/dialog/progress_window.h"
#include "setup/dialog/setup_look.h"
#include "setup/dialog/setup_window.h"
#include "setup/window_icon.h"
#include "tavi/controls/designed_popup.h"
#include "tavi/controls/progress_bar.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"

namespace velquin::setup {
namespace {

// Design pixels.
constexpr int32_t kWidth = 440;
constexpr int32_t kBarHeight = 14;
constexpr int32_t kLineGap = 8;
constexpr int32_t kElapsedWidth = 64;

constexpr int kLineWeight = 400;  // as light as a message, whatever the skin's captions have

constexpr int32_t kSecond = 1000;  // milliseconds
// A flow that is over sooner shows no window: one that comes and goes in a blink looks like a fault.
constexpr std::chrono::milliseconds kPatience{300};

// The reason that Windows shows beside the program's name while it waits for it.
void blockShutdown(HWND window, const std::wstring& reason) {
    static base::SystemLibrary library(L"user32.dll");
    if (auto* const create = library.function<decltype(ShutdownBlockReasonCreate)>("ShutdownBlockReasonCreate")) {
        create(window, reason.c_str());
    }
}

class ProgressWindow : public tavi::DialogWindow {
public:
    ProgressWindow(HINSTANCE instance, const ProductConfig& config, SetupAction action);

    bool open();
    // The flow has come to a step. UI thread.
    void show(const ProgressStep& step);
    void finish() {
        isRunning_ = false;
        end(tavi::DialogResult::Ok);
    }

protected:
    // Escape, Alt+F4 and the taskbar come here.
    void closeRequested() override {
        if (!isRunning_) {
            DialogWindow::closeRequested();
        }
    }
    bool handleMessage(uint32_t message, uintptr_t wParam, intptr_t lParam, intptr_t& result) override;

private:
    std::wstring textOf(int textId) const { return localizedText(config_, textId); }
    void addControls();
    void arrange();

    HINSTANCE instance_;
    const ProductConfig& config_;
    std::wstring heading_;
    bool isRunning_ = true;
    uint64_t started_ = GetTickCount64();
    tavi::DesignedPopup* popup_ = nullptr;
    tavi::Label* step_ = nullptr;
    tavi::Label* elapsed_ = nullptr;
    tavi::ProgressBar* bar_ = nullptr;
    int32_t lineHeight_ = 0;
};

ProgressWindow::ProgressWindow(HINSTANCE instance, const ProductConfig& config, SetupAction action)
    : DialogWindow(instance),
      instance_(instance),
      config_(config),
      heading_(localizedText(config, progressHeading(action))) {}

bool ProgressWindow::open() {
    const tavi::StyleSheet sheet = useSetupLook(config_);
    tree().setBackground(tavi::activeTheme().shell);
    tree().setRightToLeft(isRightToLeftLanguage(effectiveLanguage(config_)));
    constexpr tavi::Size kFirstSize{kWidth, 170};
    if (!create({.title = textOf(text::kSetupTitle),
                 .clientSize = kFirstSize,
                 .style = WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX,
                 .customChrome = true})) {
        return false;
    }
    applySetupWindowIcon(handle(), instance_);
    blockShutdown(handle(), heading_);
    // Its menu does not offer what closeRequested() would not do.
    EnableMenuItem(GetSystemMenu(handle(), FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
    addControls();
    sheet.apply(root());
    arrange();
    centerOn(nullptr);
    return true;
}

void ProgressWindow::addControls() {
    popup_ = root().add<tavi::DesignedPopup>(L"setup-progress-popup", root().bounds().local());
    popup_->setAnchors(tavi::kAnchorLeft | tavi::kAnchorTop | tavi::kAnchorRight | tavi::kAnchorBottom);
    popup_->setAppearance({.styleName = L"default"});
    popup_->setLayoutOverlapAllowed(true);
    popup_->setHeading(heading_);
    popup_->setBadge(L"V");
    bar_ = root().add<tavi::ProgressBar>(L"setup-progress", tavi::Rect{});
    bar_->setAutomationName(heading_);
    step_ = root().add<tavi::Label>(L"setup-progress-step", tavi::Rect{}, L"");
    elapsed_ = root().add<tavi::Label>(L"setup-progress-elapsed", tavi::Rect{}, formatElapsed(0));
    for (tavi::Label* const line : {step_, elapsed_}) {
        line->setFontChange(0, kLineWeight);
    }
    elapsed_->setAlign(tavi::TextAlign::kEnd);
    tavi::ChromeTitleBar* const chrome = addSetupChrome(*this, tavi::activeTheme(), kWidth, title());
    chrome->setButtonShown(tavi::CaptionButton::kClose, false);
    root().setTreeNotification([this](tavi::Control&) { arrange(); });
    tree().setControlTimer(*elapsed_, kSecond, [this] {
        elapsed_->setText(formatElapsed(static_cast<int64_t>((GetTickCount64() - started_) / kSecond)));
    });
}

// The bar below the heading, and below it the step at the reading's beginning, the time at its end.
void ProgressWindow::arrange() {
    lineHeight_ = std::max(elapsed_->preferredSize().height, step_->preferredSize().height);
    popup_->setReserved(kTitleBarHeight, kBarHeight + kLineGap + lineHeight_);
    const tavi::Size size{kWidth, popup_->preferredHeight(kWidth)};
    setMinimumClientSize(size);
    setDefaultClientSize(size);
    if (root().bounds().size() != size) {
        resetToDefaultSize();
    }
    const tavi::Rect middle = popup_->places(root().bounds().size()).middle;
    const bool rightToLeft = tree().rightToLeft();
    const int32_t lineTop = middle.y + kBarHeight + kLineGap;
    const int32_t stepWidth = middle.width - kElapsedWidth - kLineGap;
    bar_->setBounds({middle.x, middle.y, middle.width, kBarHeight});
    step_->setBounds({rightToLeft ? middle.right() - stepWidth : middle.x, lineTop, stepWidth, lineHeight_});
    elapsed_->setBounds({rightToLeft ? middle.x : middle.right() - kElapsedWidth, lineTop, kElapsedWidth, lineHeight_});
}

void ProgressWindow::show(const ProgressStep& step) {
    const int32_t before = lineHeight_;
    step_->setText(progressLine(step.textId >= 0 ? textOf(step.textId) : L"", step.subject));
    // A taller script than that of the digits. Another size would bring a minimised window back.
    if (step_->preferredSize().height > before && !IsIconic(handle())) {
        arrange();
    }
}

bool ProgressWindow::handleMessage(uint32_t message, uintptr_t wParam, intptr_t lParam, intptr_t& result) {
    if (message == WM_QUERYENDSESSION && isRunning_) {
        result = FALSE;
        return true;
    }
    return DialogWindow::handleMessage(message, wParam, lParam, result);
}

// The flow's steps use COM, each for itself; an apartment around all of them spares them making one each time.
bool runFlow(const std::function<bool()>& flow) {
    const base::ComApartment apartment;
    try {
        return flow();
    } catch (const std::exception& failure) {
        writeSetupLog(L"setup broke off: " + base::toWide(failure.what()));
        return false;
    }
}

// Hands the steps of the log on to the window while it lives.
class StepObserver {
public:
    explicit StepObserver(ProgressWindow& window) {
        setLogObserver([&window, post = window.poster()](std::wstring_view line) {
            // Posted functions are dropped once the window is gone.
            if (std::optional<ProgressStep> step = progressStep(line)) {
                post([&window, step = *std::move(step)] { window.show(step); });
            }
        });
    }
    StepObserver(const StepObserver&) = delete;
    StepObserver& operator=(const StepObserver&) = delete;
    ~StepObserver() { setLogObserver({}); }
};

}  // namespace

bool runWithProgress(HINSTANCE instance, const ProductConfig& config, SetupAction action,
                     const std::function<bool()>& flow) {
    ProgressWindow window(instance, config, action);
    if (!window.open()) {
        return runFlow(flow);
    }
    const StepObserver observer(window);
    bool ok = false;
    std::binary_semaphore ended(0);
    std::jthread worker;  // the last of all that it uses, so that an exception waits for it
    try {
        worker = std::jthread([&] {
            ok = runFlow(flow);
            ended.release();
            window.post([&window] { window.finish(); });
        });
    } catch (const std::system_error&) {
        return runFlow(flow);  // there was no thread to be had
    }
    if (!ended.try_acquire_for(kPatience)) {
        window.runModal();
    }
    // Also when something else has ended the loop.
    worker.join();
    return ok;
}

}  // namespace velquin::setup
