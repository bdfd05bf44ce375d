#pragma once

#include "platform/foundation/Result.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Serves the page on the loopback address and carries its messages, over HTTP and WebSocket, on a thread of its own.
/// Everything else is refused, each time with one line on standard error: another host or origin, an address without
/// the token, more than 1 MB, a method or a file that the page does not need. Made by the command, which keeps it as
/// long as the phone is shown.
class PageServer {
public:
    using PageId = std::uint64_t;
    /// The page's own files by name; the only ones that are ever served.
    using Parts = std::function<std::optional<std::string>(const std::string& name)>;

    /// What pages do; called by wait(), in order.
    struct Listener {
        std::function<void(PageId)> came;
        std::function<void(PageId)> gone;
        std::function<void(PageId, const std::string& text)> said;
    };

    /// Port 0: any that is free. Fails when the port is in use.
    [[nodiscard]] static Result<std::unique_ptr<PageServer>> start(unsigned short port, Parts parts, Listener listener);
    /// Closes every connection and waits for the thread.
    ~PageServer();
    PageServer(const PageServer&) = delete;
    PageServer& operator=(const PageServer&) = delete;

    /// "http://127.0.0.1:PORT/TOKEN/". The token is 128 random bits.
    [[nodiscard]] const std::string& address() const;

    /// Waits until a page has done something or the process was told to end (SIGINT, SIGTERM), but no longer than
    /// `patience`; tells the listener.
    void wait(std::chrono::nanoseconds patience);
    [[nodiscard]] bool wasInterrupted() const;

    // Messages to a page; nothing happens when it is gone. A page that does not take what waits for it is closed.
    void sendText(PageId page, std::string text);
    void sendBytes(PageId page, std::vector<std::uint8_t> bytes);
    /// Ends the connection of a page that sent what nobody understands.
    void refuse(PageId page, const std::string& why);

private:
    class Worker;
    explicit PageServer(std::unique_ptr<Worker> worker);

    std::unique_ptr<Worker> m_worker;
};
