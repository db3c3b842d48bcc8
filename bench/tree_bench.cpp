// Benchmarks of the control tree and of signals.
#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "tavi/core/panel.h"
#include "tavi/core/signal.h"
#include "tavi/core/window_host.h"

namespace {

using namespace tavi;

// A window that wants nothing, so that a control's own work is measured, what it tells the window included.
class NoWindow final : public WindowHost {
public:
    void repaint(const Rect&, uint32_t) override {}
    void controlChanged(Control&) override {}
    void controlLeaves(Control&) override {}
    const Scale& scale() const override { return scale_; }
    Rect paintArea() const override { return {}; }
    void pushClip(HDC, const Rect&) override {}
    void popClip(HDC) override {}
    void capturePointer(Control&) override {}
    void releasePointer() override {}
    Control* pointerOwner() const override { return nullptr; }
    bool setFocus(Control*) override { return false; }
    Control* focused() const override { return nullptr; }
    Control* hovered() const override { return nullptr; }
    void setControlTimer(Control&, int32_t, std::function<void()>) override {}
    void copyText(const std::wstring&) override {}
    std::wstring clipboardText() override { return {}; }
    bool rightToLeft() const override { return false; }
    WindowFrame* frame() override { return nullptr; }
    bool diagnostics() const override { return false; }
    void writeDiagnostic(const std::wstring&) override {}

private:
    Scale scale_;
};

constexpr int32_t kSmall = 1'000'000;
constexpr int32_t kLarge = 1'100'000;

// A tree of panels in which every control gets other bounds when the root is resized: inner ones change their size,
// leaves may just move.
class Tree {
public:
    Tree(size_t controls, size_t fanOut) {
        all_.push_back(&root);
        for (size_t i = 1; i <= controls; ++i) {
            const auto offset = static_cast<int32_t>(i % 50);
            Control* const control =
                all_[(i - 1) / fanOut]->add<Panel>(L"control " + std::to_wstring(i), Rect{offset, offset, 5000, 5000});
            const bool isLeaf = i * fanOut + 1 > controls;
            place(*control, isLeaf ? i % 5 : i % 2);
            all_.push_back(control);
        }
        root.setWindow(&host_);
    }

    Panel root{L"root", {0, 0, kSmall, kSmall}};

    void resize(bool large) {
        const int32_t extent = large ? kLarge : kSmall;
        root.setBounds({0, 0, extent, extent});
    }
    bool everyControlChanges() {
        std::vector<Rect> before;
        for (const Control* const control : all_) {
            before.push_back(control->bounds());
        }
        resize(true);
        bool all = true;
        for (size_t i = 0; i < all_.size(); ++i) {
            all = all && all_[i]->bounds() != before[i];
        }
        resize(false);
        return all;
    }

private:
    static void place(Control& control, size_t way) {
        switch (way) {
            case 0:
                return control.setAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
            case 1:
                return control.setConstraints({.left = RelativeLength{0.1, 5},
                                               .right = RelativeLength{0.9, -5},
                                               .top = RelativeLength{0.05, 0},
                                               .bottom = RelativeLength{0.8, 0},
                                               .centerX = {},
                                               .centerY = {},
                                               .width = {},
                                               .height = {}});
            case 2:
                return control.setAnchors(kAnchorRight | kAnchorBottom);
            case 3:
                control.setMinimumSize(6000, 10);
                return control.setAnchors(kAnchorRight | kAnchorTop);
            default:
                return control.setConstraints({.left = {},
                                               .right = {},
                                               .top = {},
                                               .bottom = {},
                                               .centerX = RelativeLength{0.5, 0},
                                               .centerY = RelativeLength{0.25, 0},
                                               .width = 300,
                                               .height = {}});
        }
    }

    NoWindow host_;
    std::vector<Control*> all_;
};

void relayout(benchmark::State& state, size_t fanOut) {
    Tree tree(static_cast<size_t>(state.range(0)), fanOut);
    if (!tree.everyControlChanges()) {
        state.SkipWithError("a control kept its bounds");
    }
    bool large = false;
    for (auto _ : state) {
        tree.resize(large = !large);
    }
}
BENCHMARK_CAPTURE(relayout, deep, 10)->Name("relayout")->RangeMultiplier(10)->Range(100, 100'000);
BENCHMARK_CAPTURE(relayout, wide, 100)->Name("relayout_wide")->RangeMultiplier(10)->Range(100, 100'000);

// An id that is not there, against looking at no more than one character of each.
void findOurs(benchmark::State& state) {
    Tree tree(10'000, 10);
    for (auto _ : state) {
        const Control* found = tree.root.findById(L"missing");
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(findOurs)->Name("find_by_id/ours");

void findPeer(benchmark::State& state) {
    Tree tree(10'000, 10);
    const auto find = [](const auto& self, const Control& parent) -> const Control* {
        for (const auto& child : parent.children()) {
            if (child->id()[0] == L'm') {
                return child.get();
            }
            if (const Control* const found = self(self, *child)) {
                return found;
            }
        }
        return nullptr;
    };
    for (auto _ : state) {
        const Control* found = find(find, tree.root);
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(findPeer)->Name("find_by_id/peer");

struct Event {
    int calls = 0;
};

void emissionOurs(benchmark::State& state) {
    Signal<Event> signal;
    for (int i = 0; i < 8; ++i) {
        signal.connect([i](Event& event) { event.calls += i; });
    }
    for (auto _ : state) {
        Event event;
        signal.emit(event);
        benchmark::DoNotOptimize(event);
    }
}
BENCHMARK(emissionOurs)->Name("emission/ours");

void emissionPeer(benchmark::State& state) {
    std::vector<std::function<void(Event&)>> listeners;
    for (int i = 0; i < 8; ++i) {
        listeners.emplace_back([i](Event& event) { event.calls += i; });
    }
    for (auto _ : state) {
        Event event;
        for (const auto& listener : listeners) {
            listener(event);
        }
        benchmark::DoNotOptimize(event);
    }
}
BENCHMARK(emissionPeer)->Name("emission/peer");

}  // namespace
