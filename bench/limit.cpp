// The least this screen can cost: a bare Cairo and Pango program that draws the same rows by hand. It does once what
// the extension does in a session (start, scroll, repaint, choose other groups) and prints what each took.
//
// bench-limit BUNDLE [PICTURE.png | --load]

#include "bench/Session.h"
#include "bench/limit/Screen.h"
#include "bench/limit/Sizes.h"

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

void start(limit::Screen& screen, limit::Frame& frame, limit::Content& content, const std::string& bundle) {
    std::thread loader([&] { content = limit::readContent(bundle); });
    std::thread faults([&] { frame.populate(); });
    screen.prepare();
    loader.join();
    screen.show("Adult (18+)", content["Adult (18+)"]);
    faults.join();
    screen.paintAll();
}

std::vector<double> scroll(limit::Screen& screen) {
    std::vector<double> times;
    int distance = limit::points(20);
    for (int step = 0; step < bench::scrollSteps; ++step) {
        bool atEnd = false;
        times.push_back(bench::milliseconds([&] { atEnd = !screen.scroll(distance); }));
        distance = atEnd ? -distance : distance;
    }
    return times;
}

std::vector<double> repaint(limit::Screen& screen) {
    std::vector<double> times;
    for (int i = 0; i < bench::repaints; ++i) {
        times.push_back(bench::milliseconds([&] { screen.paintAll(); }));
    }
    return times;
}

std::vector<double> choose(limit::Screen& screen, limit::Content& content) {
    std::vector<double> times;
    for (const char* group : {"Friends", "Couple", "Family"}) {
        times.push_back(bench::milliseconds([&] {
            screen.show(group, content[group]);
            screen.paintChange();
        }));
    }
    return times;
}

int measureLoad(const char* bundle) {
    limit::Content content;
    bench::Figures figures;
    figures.add("load_ms", bench::milliseconds([&] { content = limit::readContent(bundle); }));
    figures.print();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: bench-limit BUNDLE [PICTURE.png | --load]\n", stderr);
        return 2;
    }
    if (argc > 2 && std::string(argv[2]) == "--load") {
        return measureLoad(argv[1]);
    }
    limit::Frame frame(limit::screenWidth, limit::screenHeight);
    limit::Screen screen(frame, argv[1]);
    limit::Content content;
    start(screen, frame, content, argv[1]);
    bench::Figures figures;
    figures.add("start_ms", bench::millisecondsSinceStart());
    figures.add("memory_at_start_mb", bench::peakMegabytes());
    if (argc > 2 && !frame.write(argv[2])) {
        std::fprintf(stderr, "bench-limit: %s cannot be written\n", argv[2]);
        return 1;
    }
    figures.addSamples("scroll_ms", scroll(screen));
    figures.add("repaint_ms", bench::median(repaint(screen)));
    figures.add("choose_ms", bench::median(choose(screen, content)));
    figures.add("memory_mb", bench::peakMegabytes());
    figures.print();
    return 0;
}
