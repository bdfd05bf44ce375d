#include "simulator/live/FileWatch.h"
#include "simulator/live/LiveSession.h"
#include "simulator/live/PageParts.h"
#include "simulator/parlor/PreparedBundle.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <spawn.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* examples =
    "Examples:\n"
    "  parlor open                     the extension, live\n"
    "  parlor open MyList.json         your content file; saving it shows it\n"
    "  parlor open flows/canvas.yaml   what a flow is about, with its settings\n"
    "  parlor open --port 8080 --no-browser\n"
    "\n"
    "The address stands on standard error, the extension's debug lines on standard output.\n"
    "Ctrl-C ends it.\n";

struct OpenOptions : BundleOptions {
    std::string what; // a content file, a flow or a bundle; empty: the extension
    unsigned short port = 0;
    bool noBrowser = false;
    std::optional<fs::path> page; // a folder
};

/// What the one argument names, put where the other commands have it.
Result<Flow> read(OpenOptions& options) {
    const fs::path path = options.what;
    std::error_code error;
    if (path.extension() == ".json") {
        options.content = options.what;
    } else if (path.extension() == ".yaml" || path.extension() == ".yml") {
        const Result<std::vector<Flow>> flows = readFlowsToPlay({options.what});
        return flows ? Result<Flow>(flows.value().front()) : flows.failure();
    } else if (fs::is_directory(path, error)) {
        options.bundle = path;
    } else if (!path.empty()) {
        return Failure{options.what + " is no content file (.json), no flow (.yaml) and no bundle (a folder)"};
    }
    return Flow{};
}

std::string titleOf(const OpenOptions& options, const Flow& flow) {
    return flow.name.empty() ? fs::path(options.what).filename().string() : flow.name;
}

std::vector<fs::path> filesBehind(const OpenOptions& options, const Flow& flow, const PreparedBundle& bundle) {
    std::vector<fs::path> files{bundle.folder};
    if (options.content) {
        files.emplace_back(*options.content);
    }
    for (const ResourceOverride& resource : flow.overrides) {
        files.emplace_back(resource.file.value_or(""));
    }
    return files;
}

bool hasDisplay() {
    return std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
}

/// A machine without a browser is none the worse for it: the address has been told.
void openBrowser(const std::string& address) {
    std::signal(SIGCHLD, SIG_IGN); // nobody waits for it
    std::string program = "xdg-open";
    std::string argument = address;
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    pid_t process = 0;
    posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments, environ);
}

std::chrono::nanoseconds waitingTime(const LiveSession& session) {
    std::chrono::nanoseconds time = FileWatch::pause;
    MainRunLoop& loop = MainRunLoop::shared();
    if (const std::optional<MainRunLoop::Duration> due = loop.nextDueTime()) {
        time = std::clamp(*due - loop.now(), MainRunLoop::Duration(0), time);
    }
    return std::min(time, session.patience().value_or(time));
}

void showUntilInterrupted(PageServer& server, LivePhone& phone, LiveSession& session, FileWatch& files) {
    while (!server.wasInterrupted()) {
        MainRunLoop::shared().runUntilIdle();
        session.update();
        server.wait(waitingTime(session));
        if (files.hasChanged()) {
            phone.reload();
        }
    }
}

CommandResult show(const OpenOptions& options, const Flow& flow, const PreparedBundle& bundle) {
    LiveSession* session = nullptr; // pages are heard of by wait() only, when it is there
    Result<std::unique_ptr<PageServer>> started = PageServer::start(
        options.port, pageParts(options.page),
        {[&](PageServer::PageId page) { session->came(page); }, [&](PageServer::PageId page) { session->gone(page); },
         [&](PageServer::PageId page, const std::string& text) { session->said(page, text); }});
    if (!started) {
        return started.failure();
    }
    PageServer& server = *started.value();
    const auto open = [&]() -> Result<BundleFindings> {
        const Result<PreparedBundle> prepared = prepareBundle(options);
        if (!prepared) {
            return prepared.failure();
        }
        prepared.value().openFor(flow);
        tell(prepared.value().findings.all);
        return prepared.value().findings;
    };
    FileWatch files(filesBehind(options, flow, bundle));
    LivePhone phone({titleOf(options, flow), flow.scene, bundle.deviceFor(flow), flow.participants, open,
                     [&server] { server.wake(); }});
    LiveSession shown(phone,
                      {[&](auto page, std::string text) { server.sendText(page, std::move(text)); },
                       [&](auto page, std::vector<std::uint8_t> bytes) { server.sendBytes(page, std::move(bytes)); },
                       [&](auto page, const std::string& why) { server.refuse(page, why); }});
    session = &shown;
    std::cerr << server.address() << std::endl;
    if (!options.noBrowser && hasDisplay()) {
        openBrowser(server.address());
    }
    showUntilInterrupted(server, phone, shown, files);
    return Findings{};
}

CommandResult open(OpenOptions options) {
    const Result<Flow> flow = read(options);
    if (!flow) {
        return flow.failure();
    }
    const Result<PreparedBundle> bundle = prepareBundle(options);
    return bundle ? show(options, flow.value(), bundle.value()) : CommandResult(bundle.failure());
}

} // namespace

ParlorCommand addOpenCommand(CLI::App& app) {
    const auto options = std::make_shared<OpenOptions>();
    CLI::App* line = app.add_subcommand("open", "Shows the screen live in a browser");
    line->add_option("what", options->what, "A content file, a flow or a bundle (default: the extension)")
        ->type_name("FILE");
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    line->add_option("--port", options->port, "The port (default: any that is free)")->type_name("N");
    line->add_flag("--no-browser", options->noBrowser, "Only tells the address");
    line->add_option("--page", options->page, "Reads the page's files from this folder each time")->type_name("DIR");
    line->footer(examples);
    return {line, [options] { return open(*options); }};
}
