// What a Window offers, handed to its Win32 half.
#include <windows.h>

#include <utility>

#include "tavi/core/dpi.h"
#include "tavi/core/message_loop.h"
#include "tavi/core/window_native.h"

namespace tavi {

Window::Window(HINSTANCE instance) : native_(std::make_shared<WindowNative>(*this, instance)) {}

Window::~Window() {
    native_->abandon();
}

bool Window::create(const WindowOptions& options) {
    const std::shared_ptr<WindowNative> keep = native_;
    return keep->create(options);
}

HWND Window::handle() const {
    return native_->handle();
}

const std::wstring& Window::title() const {
    return native_->title();
}

Panel& Window::root() {
    return native_->tree().root();
}

WindowTree& Window::tree() {
    return native_->tree();
}

void Window::show() {
    const std::shared_ptr<WindowNative> keep = native_;
    ShowWindow(keep->handle(), SW_SHOW);
    if (keep->handle() != nullptr) {
        UpdateWindow(keep->handle());
    }
}

void Window::hide() {
    ShowWindow(handle(), SW_HIDE);
}

int Window::run() {
    const std::shared_ptr<WindowNative> keep = native_;
    show();
    const std::optional<int> quit = pumpMessages([&] { return keep->handle() == nullptr; });
    return quit.value_or(0);
}

bool Window::post(std::function<void()> function) {
    const std::shared_ptr<WindowNative> keep = native_;
    return keep->post(std::move(function));
}

Window::Poster Window::poster() const {
    return [native = std::weak_ptr(native_)](std::function<void()> function) {
        const std::shared_ptr<WindowNative> keep = native.lock();
        return keep != nullptr && keep->handle() != nullptr && keep->post(std::move(function));
    };
}

void Window::close() {
    native_->requestClose();
}

void Window::setTitle(const std::wstring& title) {
    const std::shared_ptr<WindowNative> native = native_;
    post([native, title] { native->setTitle(title); });
}

void Window::requestRepaint() {
    const std::shared_ptr<WindowNative> native = native_;
    post([native] { native->tree().repaintAll(); });
}

void Window::setDefaultControl(Control* control) {
    tree().focus().setDefault(control);
}

void Window::setCancelControl(Control* control) {
    tree().focus().setCancel(control);
}

void Window::setDiagnostics(bool on) {
    tree().setDiagnostics(on);
}

void Window::setDiagnosticSink(std::function<void(const std::wstring&)> sink) {
    native_->setSink(std::move(sink));
}

DpiAwareness Window::dpiAwareness() {
    return processDpiAwareness();
}

Window::PaintCounts Window::paintCounts() const {
    return native_->paintCounts();
}

bool Window::handleMessage(uint32_t /*message*/, uintptr_t /*wParam*/, intptr_t /*lParam*/, intptr_t& /*result*/) {
    return false;
}

void Window::closeRequested() {
    native_->destroy();
}

void Window::setMinimumClientSize(Size size) {
    native_->setMinimumClientSize(size);
}

Size Window::effectiveMinimumClientSize() {
    return native_->effectiveMinimumClientSize();
}

void Window::setDefaultClientSize(Size size) {
    native_->setDefaultClientSize(size);
}

void Window::resetToDefaultSize() {
    native_->resetToDefaultSize();
}

void Window::centerOn(HWND other) {
    native_->centerOn(other);
}

void Window::minimize() {
    native_->minimize();
}

void Window::maximize() {
    native_->maximize();
}

void Window::restore() {
    native_->restore();
}

bool Window::maximized() const {
    return native_->maximized();
}

void Window::beginMove() {
    native_->beginMove();
}

}  // namespace tavi
