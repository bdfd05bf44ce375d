// The extension itself, through the same session as bench-limit: start, scroll, repaint, choose other groups.
//
// bench-screen BUNDLE [PICTURE.png | --load]

#include "bench/ExtensionScreen.h"
#include "bench/Session.h"

#include "content/LoadPass.h"
#include "platform/foundation/NSBundle.h"
#include "platform/graphics/FontLibrary.h"
#include "platform/graphics/PNG.h"
#include "platform/uikit/window/WindowRenderer.h"

#include <cstdio>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr CGFloat stepLength = 20;

/// One scrolled frame; false at the end of the content.
bool scrollBy(bench::ExtensionScreen& extension, WindowRenderer& renderer, CGFloat distance) {
    const CGFloat before = extension.table().contentOffset().y;
    extension.table().setContentOffset({0, before + distance});
    extension.settle();
    renderer.render(extension.window());
    return extension.table().contentOffset().y == before + distance;
}

std::vector<double> scroll(bench::ExtensionScreen& extension, WindowRenderer& renderer) {
    std::vector<double> times;
    CGFloat distance = stepLength;
    for (int step = 0; step < bench::scrollSteps; ++step) {
        bool atEnd = false;
        times.push_back(bench::milliseconds([&] { atEnd = !scrollBy(extension, renderer, distance); }));
        distance = atEnd ? -distance : distance;
    }
    return times;
}

std::vector<double> repaint(bench::ExtensionScreen& extension, WindowRenderer& renderer) {
    std::vector<double> times;
    for (int i = 0; i < bench::repaints; ++i) {
        extension.window().setNeedsDisplay();
        times.push_back(bench::milliseconds([&] { renderer.render(extension.window()); }));
    }
    return times;
}

/// From the finger's leaving the screen to the picture of the chosen group.
std::vector<double> choose(bench::ExtensionScreen& extension, WindowRenderer& renderer) {
    std::vector<double> times;
    for (int group = 1; group <= 3; ++group) {
        extension.touchGroup(group);
        renderer.render(extension.window());
        times.push_back(bench::milliseconds([&] {
            extension.liftFinger();
            renderer.render(extension.window());
        }));
    }
    return times;
}

int measureLoad(const char* bundle) {
    NSBundle::setMainBundle(bundle);
    ContentMap content;
    bench::Figures figures;
    figures.add("load_ms", bench::milliseconds([&] { content = readContentMap(); }));
    figures.print();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: bench-screen BUNDLE [PICTURE.png | --load]\n", stderr);
        return 2;
    }
    if (argc > 2 && std::string(argv[2]) == "--load") {
        return measureLoad(argv[1]);
    }
    WindowRenderer renderer(bench::screenSize, bench::screenScale);
    std::thread ahead([&renderer] {
        static_cast<void>(FontLibrary::shared());
        renderer.populate();
    });
    bench::ExtensionScreen extension(argv[1]);
    extension.waitForContent();
    ahead.join();
    renderer.render(extension.window());
    bench::Figures figures;
    figures.add("start_ms", bench::millisecondsSinceStart());
    figures.add("memory_at_start_mb", bench::peakMegabytes());
    if (argc > 2) {
        if (const std::optional<Failure> failure = writePNG(renderer.bitmap(), argv[2])) {
            std::fprintf(stderr, "bench-screen: %s\n", failure->what.c_str());
            return 1;
        }
    }
    figures.addSamples("scroll_ms", scroll(extension, renderer));
    figures.add("repaint_ms", bench::median(repaint(extension, renderer)));
    figures.add("choose_ms", bench::median(choose(extension, renderer)));
    figures.add("memory_mb", bench::peakMegabytes());
    figures.print();
    return 0;
}
