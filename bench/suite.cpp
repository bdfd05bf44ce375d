// The parts of a frame one by one, with Google Benchmark: bench-suite SMALL-BUNDLE LARGE-BUNDLE [--benchmark_…]

#include "bench/ExtensionScreen.h"

#include "content/LoadPass.h"
#include "platform/dispatch/MainRunLoop.h"
#include "platform/foundation/NSBundle.h"
#include "platform/graphics/TextLayout.h"
#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/window/UITouch.h"
#include "platform/uikit/window/WindowRenderer.h"
#include "ui/DrawingView.h"
#include "ui/ModeTblCell.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

namespace {

std::string smallBundle;
std::string largeBundle;

const std::string& bundleOf(const benchmark::State& state) {
    return state.range(0) == 0 ? smallBundle : largeBundle;
}

std::shared_ptr<ModeTblCell> makeCell() {
    static const std::shared_ptr<UINib> nib = UINib::nibWithNibNameBundle("ModeTblCell", NSBundle::mainBundle());
    return std::dynamic_pointer_cast<ModeTblCell>(nib->instantiateWithOwner(nullptr).value().front());
}

void openBundleOnly() {
    bench::openBundle(smallBundle);
}

/// A text that no earlier call had.
std::string newText(const char* words) {
    static int number = 0;
    return std::string(words) + ' ' + std::to_string(++number);
}

ModeItem newItem() {
    return {"icon_heart", newText("Midnight Confessions"),
            newText("Whisper to your neighbour the best lie you ever told. Whoever laughs first pays"), false};
}

void nibInstantiation(benchmark::State& state) {
    openBundleOnly();
    for (auto _ : state) {
        benchmark::DoNotOptimize(makeCell());
    }
}
BENCHMARK(nibInstantiation)->Unit(benchmark::kMicrosecond);

void textLayout(benchmark::State& state) {
    TextRequest request;
    request.font = std::make_shared<UIFont>(13, UIFontWeight::regular);
    request.width = 249;
    for (auto _ : state) {
        request.text = newText("Whisper to your neighbour the best lie you ever told. Whoever laughs first pays");
        benchmark::DoNotOptimize(TextLayout::make(request));
    }
}
BENCHMARK(textLayout)->Unit(benchmark::kMicrosecond);

/// Another row's texts in a row that was used before: what a row costs when it comes to be seen.
void cellHeightNewTexts(benchmark::State& state) {
    openBundleOnly();
    const auto cell = makeCell();
    for (auto _ : state) {
        cell->configure(newItem());
        benchmark::DoNotOptimize(cell->contentView()->heightFittingWidth(393));
    }
}
BENCHMARK(cellHeightNewTexts)->Unit(benchmark::kMicrosecond);

/// The same without the text layout: the constraints alone.
void cellHeightKnownTexts(benchmark::State& state) {
    openBundleOnly();
    const auto cell = makeCell();
    const ModeItem one = newItem();
    const ModeItem other = newItem();
    bool first = false;
    for (auto _ : state) {
        first = !first;
        cell->configure(first ? one : other);
        benchmark::DoNotOptimize(cell->contentView()->heightFittingWidth(393));
    }
}
BENCHMARK(cellHeightKnownTexts)->Unit(benchmark::kMicrosecond);

void cellLayout(benchmark::State& state) {
    openBundleOnly();
    const auto cell = makeCell();
    const ModeItem one = newItem();
    const ModeItem other = newItem();
    bool first = false;
    for (auto _ : state) {
        first = !first;
        cell->configure(first ? one : other);
        cell->setFrame({{0, 0}, {393, first ? 110.0 : 111.0}});
        cell->layoutIfNeeded();
    }
}
BENCHMARK(cellLayout)->Unit(benchmark::kMicrosecond);

/// 0: 30 rows a file, 1: 10,000.
void loadPass(benchmark::State& state) {
    NSBundle::setMainBundle(bundleOf(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(readContentMap());
    }
}
BENCHMARK(loadPass)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void tableReload(benchmark::State& state) {
    bench::ExtensionScreen extension(bundleOf(state));
    extension.waitForContent();
    for (auto _ : state) {
        extension.table().reloadData();
        extension.settle();
    }
}
BENCHMARK(tableReload)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// 20 points down and 20 up again by turns, so that no text is new.
void scrollStep(benchmark::State& state) {
    bench::ExtensionScreen extension(bundleOf(state));
    WindowRenderer renderer(bench::screenSize, bench::screenScale);
    extension.waitForContent();
    renderer.render(extension.window());
    CGFloat offset = 200;
    for (auto _ : state) {
        offset = offset == 200 ? 220 : 200;
        extension.table().setContentOffset({0, offset});
        extension.settle();
        renderer.render(extension.window());
    }
}
BENCHMARK(scrollStep)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void fullPaint(benchmark::State& state) {
    bench::ExtensionScreen extension(bundleOf(state));
    WindowRenderer renderer(bench::screenSize, bench::screenScale);
    extension.waitForContent();
    for (auto _ : state) {
        extension.window().setNeedsDisplay();
        renderer.render(extension.window());
    }
}
BENCHMARK(fullPaint)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// A drawing canvas that fills the screen, and a finger on it.
class CanvasScene {
public:
    CanvasScene() {
        openBundleOnly();
        m_window->addSubview(m_canvas);
        m_canvas->setStrokeWidth(6);
        m_window->layoutIfNeeded();
    }
    void render() { m_renderer.render(*m_window); }
    UIWindow& window() { return *m_window; }

    void begin(int stroke) {
        m_finger = std::make_shared<UITouch>(point(stroke, 0));
        send();
    }
    void move(int stroke, int step) {
        m_finger->moveTo(point(stroke, step), UITouchPhase::moved);
        send();
    }
    void end(int stroke, int step) {
        m_finger->moveTo(point(stroke, step), UITouchPhase::ended);
        send();
    }
    void draw(int strokes, int points) {
        for (int stroke = 0; stroke < strokes; ++stroke) {
            begin(stroke);
            for (int step = 1; step < points; ++step) {
                move(stroke, step);
            }
            end(stroke, points);
        }
    }

private:
    /// Strokes start anywhere and wind about 100 points wide.
    static CGPoint point(int stroke, int step) {
        const double angle = step * 0.2;
        return {50 + stroke * 37 % 290 + 40 * std::cos(angle), 50 + stroke * 61 % 740 + 40 * std::sin(1.7 * angle)};
    }
    void send() {
        UIEvent event(TouchSet{m_finger});
        m_window->sendEvent(event);
        MainRunLoop::shared().runUntilIdle();
    }

    std::shared_ptr<UIWindow> m_window = std::make_shared<UIWindow>(CGRect{{0, 0}, bench::screenSize});
    std::shared_ptr<DrawingView> m_canvas = std::make_shared<DrawingView>(CGRect{{0, 0}, bench::screenSize});
    std::shared_ptr<UITouch> m_finger;
    WindowRenderer m_renderer{bench::screenSize, bench::screenScale};
};

/// Over strokes of 100 points: one move of a further stroke (its 50th point and on), with the frame that shows it.
void canvasMove(benchmark::State& state) {
    const int strokes = static_cast<int>(state.range(0));
    CanvasScene scene;
    scene.draw(strokes, 100);
    scene.render();
    scene.begin(strokes);
    int step = 0;
    for (; step < 50; ++step) {
        scene.move(strokes, step);
    }
    scene.render();
    for (auto _ : state) {
        scene.move(strokes, step++ % 100);
        scene.render();
    }
}
BENCHMARK(canvasMove)->Arg(10)->Arg(100)->Arg(1000)->Iterations(50)->Unit(benchmark::kMillisecond);

/// All pixels anew, the drawing known.
void canvasRedraw(benchmark::State& state) {
    CanvasScene scene;
    scene.draw(static_cast<int>(state.range(0)), 100);
    scene.render();
    for (auto _ : state) {
        scene.window().setNeedsDisplay();
        scene.render();
    }
}
BENCHMARK(canvasRedraw)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

/// The first time that all strokes are drawn.
void canvasFirstDraw(benchmark::State& state) {
    CanvasScene scene;
    scene.draw(static_cast<int>(state.range(0)), 100);
    for (auto _ : state) {
        WindowRenderer renderer(bench::screenSize, bench::screenScale);
        renderer.render(scene.window());
    }
}
BENCHMARK(canvasFirstDraw)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 3) {
        std::fputs("usage: bench-suite SMALL-BUNDLE LARGE-BUNDLE [--benchmark_filter=...]\n", stderr);
        return 2;
    }
    smallBundle = argv[1];
    largeBundle = argv[2];
    benchmark::RunSpecifiedBenchmarks();
    MainRunLoop::shared().reset();
    return 0;
}
