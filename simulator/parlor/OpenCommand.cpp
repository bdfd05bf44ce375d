#include "simulator/flows/FlowReader.h"
#include "simulator/live/DrawnIcons.h"
#include "simulator/live/FileWatch.h"
#include "simulator/live/LiveSession.h"
#include "simulator/live/PageParts.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/pictures/PictureFile.h"

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
    "  parlor open flows/canvas.yaml   the phone of a flow: device, people, files\n"
    "  parlor open --port 8080 --no-browser\n"
    "  parlor open --record my-flow.yaml    what you do, for: parlor run my-flow.yaml\n"
    "\n"
    "The address stands on standard error, the extension's debug lines on standard output.\n"
    "Ctrl-C ends it.\n";

struct OpenOptions : BundleOptions {
    std::string what; // a content file, a flow or a bundle; empty: the extension
    unsigned short port = 0;
    bool noBrowser = false;
    std::optional<fs::path> page; // a folder
    std::optional<std::string> record;
};

/// What the one argument names, put where the other commands have it.
Result<Flow> read(OpenOptions& options) {
    const fs::path path = options.what;
    std::error_code error;
    if (path.extension() == ".json") {
        options.content = options.what;
    } else if (path.extension() == ".yaml" || path.extension() == ".yml") {
        Findings findings;
        std::optional<Flow> flow = readFlowFile(options.what, findings);
        tell(findings);
        return flow ? Result<Flow>(*std::move(flow)) : Failure{options.what + " cannot be shown, as it cannot be read"};
    } else if (fs::is_directory(path, error)) {
        options.bundle = path;
        const std::vector<std::string> flows = flowFilesAt(options.what);
        if (!fs::exists(path / "Info.plist", error) && !flows.empty()) {
            return Failure{options.what + " is a folder of flows; one can be opened, such as " + flows.front()};
        }
    } else if (!path.empty()) {
        return Failure{options.what + " is no content file (.json), no flow (.yaml) and no bundle (a folder)"};
    }
    return Flow{};
}

/// A mistyped name must not cost somebody a list.
std::string isFlowName(const std::string& name) {
    const fs::path ending = fs::path(name).extension();
    return ending == ".yaml" || ending == ".yml" ? "" : "a flow is written, so its name ends in .yaml";
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

/// The phone, the server of its pages and the files behind both, while the command runs.
class OpenPhone {
public:
    OpenPhone(const OpenOptions& options, const Flow& flow, const PreparedBundle& bundle)
        : m_options(options), m_flow(flow), m_folder(bundle.folder), m_device(bundle.deviceFor(flow)) {
        m_files.emplace(filesBehind());
    }

    /// Fails when the port is in use or the recording cannot be written.
    [[nodiscard]] std::optional<Failure> start() {
        Result<std::unique_ptr<PageServer>> server =
            PageServer::start(m_options.port, pageParts(m_options.page), listener());
        if (!server) {
            return server.failure();
        }
        m_server = std::move(server.value());
        m_phone.emplace(show());
        m_session.emplace(*m_phone, out());
        return saveRecording();
    }

    void showUntilInterrupted() {
        std::cerr << m_server->address() << std::endl;
        if (!m_options.noBrowser && hasDisplay()) {
            openBrowser(m_server->address());
        }
        while (!m_server->wasInterrupted()) {
            passTime();
            m_session->update();
            m_server->wait(waitingTime());
            if (m_files->hasChanged()) {
                m_phone->reload();
                (void)saveRecording();
            }
        }
    }

    /// What was done, when that is wanted as a file.
    [[nodiscard]] std::optional<Failure> saveRecording() const {
        return m_options.record ? writeWholeFile(m_phone->recorder().text(), *m_options.record) : std::nullopt;
    }

private:
    /// As much as has passed in the room.
    void passTime() {
        const auto time =
            std::chrono::floor<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_timePassed);
        m_timePassed += time;
        m_phone->passTime(time);
    }

    [[nodiscard]] std::vector<fs::path> filesBehind() const {
        std::vector<fs::path> files{m_folder};
        if (m_options.content) {
            files.emplace_back(*m_options.content);
        }
        for (const ResourceOverride& resource : m_flow.overrides) {
            files.emplace_back(resource.file.value_or(""));
        }
        return files;
    }

    /// Pages are heard of by wait() only, when the session is there.
    [[nodiscard]] PageServer::Listener listener() {
        return {[this](auto page) { m_session->came(page); }, [this](auto page) { m_session->gone(page); },
                [this](auto page, const std::string& text) {
                    passTime();
                    m_session->said(page, text);
                }};
    }

    [[nodiscard]] LiveSession::Out out() {
        return {[this](auto page, std::string text) { m_server->sendText(page, std::move(text)); },
                [this](auto page, std::vector<std::uint8_t> bytes) { m_server->sendBytes(page, std::move(bytes)); },
                [this](auto page, const std::string& why) { m_server->refuse(page, why); }};
    }

    [[nodiscard]] LiveShow show() {
        LiveShow show;
        show.title = m_flow.name.empty() ? fs::path(m_options.what).filename().string() : m_flow.name;
        show.scene = m_flow.scene;
        show.device = m_device;
        show.participants = m_flow.participants;
        show.overrides = m_flow.overrides;
        if (m_options.content) {
            show.overrides.push_back({groupFor(*m_options.content) + ".json", m_options.content});
        }
        show.open = [this] { return openBundle(); };
        return show;
    }

    /// Those of the tree stand where the build puts them; others beside their drawings.
    [[nodiscard]] Findings renderIcons() const {
        const fs::path catalogue = m_folder / "Assets.xcassets";
        std::error_code error;
        const bool isOfTree = fs::equivalent(m_folder, inTree("resources"), error);
        const fs::path rendered = isOfTree ? besideProgram("TruthsAndDares.appex") / "Assets.xcassets" : catalogue;
        return renderDrawings(catalogue, rendered, m_began);
    }

    /// What was checked is what is shown: a file that is saved in between could not be read any more.
    [[nodiscard]] Result<BundleFindings> openBundle() {
        std::optional<Result<BundleFindings>> opened;
        m_files->takeIn([&] { opened = readBundle(); });
        if (*opened) {
            tell(opened->value().all);
        }
        return *opened;
    }

    [[nodiscard]] Result<BundleFindings> readBundle() {
        const Findings undrawn = renderIcons();
        const Result<PreparedBundle> prepared = prepareBundle(m_options);
        if (!prepared) {
            return prepared.failure();
        }
        prepared.value().openFor(m_flow);
        BundleFindings findings = prepared.value().findings;
        findings.all.insert(findings.all.end(), undrawn.begin(), undrawn.end());
        return findings;
    }

    [[nodiscard]] std::chrono::nanoseconds waitingTime() const {
        std::chrono::nanoseconds time = FileWatch::pause;
        MainRunLoop& loop = MainRunLoop::shared();
        if (const std::optional<MainRunLoop::Duration> due = loop.nextDueTime()) {
            const auto sinceThen = std::chrono::steady_clock::now() - m_timePassed;
            time = std::clamp<MainRunLoop::Duration>(*due - loop.now() - sinceThen, MainRunLoop::Duration(0), time);
        }
        return std::min(time, m_session->patience().value_or(time));
    }

    OpenOptions m_options;
    Flow m_flow;
    fs::path m_folder; // of the bundle
    fs::file_time_type m_began = fs::file_time_type::clock::now();
    std::optional<FileWatch> m_files;
    Device m_device;
    std::unique_ptr<PageServer> m_server;
    std::optional<LivePhone> m_phone;
    std::optional<LiveSession> m_session;
    std::chrono::steady_clock::time_point m_timePassed = std::chrono::steady_clock::now(); // the phone's time
};

CommandResult open(OpenOptions options) {
    const Result<Flow> flow = read(options);
    if (!flow) {
        return flow.failure();
    }
    const Result<PreparedBundle> bundle = prepareBundle(options);
    if (!bundle) {
        return bundle.failure();
    }
    OpenPhone phone(options, flow.value(), bundle.value());
    if (const std::optional<Failure> failure = phone.start()) {
        return *failure;
    }
    phone.showUntilInterrupted();
    const std::optional<Failure> failure = phone.saveRecording();
    return failure ? CommandResult(*failure) : Findings{};
}

} // namespace

ParlorCommand addOpenCommand(CLI::App& app) {
    const auto options = std::make_shared<OpenOptions>();
    CLI::App* line = app.add_subcommand("open", "Shows the screen live in a browser");
    line->add_option("what", options->what, "A content file, a flow or a bundle (default: the extension)")
        ->type_name("FILE");
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    line->add_option("--port", options->port, "The port (default: any that is free)")
        ->check(CLI::Range(0, 65535))
        ->type_name("N");
    line->add_flag("--no-browser", options->noBrowser, "Only tells the address");
    line->add_option("--record", options->record, "Writes what is done to this file, as a flow that replays it")
        ->check(isFlowName)
        ->type_name("FILE");
    line->add_option("--page", options->page, "Reads the page's files from this folder each time")->type_name("DIR");
    line->footer(examples);
    return {line, [options] { return open(*options); }};
}
