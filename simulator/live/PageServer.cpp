#include "simulator/live/PageServer.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>

#include <array>
#include <csignal>
#include <cstdio>
#include <deque>
#include <iostream>
#include <map>
#include <random>
#include <thread>
#include <variant>

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using asio::ip::tcp;

namespace {

constexpr std::size_t largestRequest = 1u << 20; // bytes, of a body or a message
constexpr std::size_t mostWaiting = 64u << 20;   // bytes that wait for a page before it is given up
constexpr std::size_t mostConnections = 64;
constexpr std::chrono::seconds requestPatience(10); // with one HTTP request

std::string makeToken() {
    std::random_device random;
    std::string token;
    for (int word = 0; word < 4; ++word) {
        std::array<char, 9> digits{};
        std::snprintf(digits.data(), digits.size(), "%08x", random());
        token += digits.data();
    }
    return token;
}

/// Takes as long for a wrong text as for the right one.
bool equalInConstantTime(std::string_view one, std::string_view other) {
    unsigned difference = one.size() == other.size() ? 0 : 1;
    for (std::size_t i = 0; i < one.size() && i < other.size(); ++i) {
        difference |= static_cast<unsigned char>(one[i]) ^ static_cast<unsigned char>(other[i]);
    }
    return difference == 0;
}

/// What came from elsewhere must not write control characters onto somebody's terminal.
std::string printable(std::string_view text) {
    std::string result;
    for (const char letter : text.substr(0, 200)) {
        result += letter >= ' ' && letter < 0x7F ? letter : '?';
    }
    return result;
}

void logRefusal(const std::string& why) {
    std::cerr << "parlor: refused: " + why + "\n";
}

std::string typeOf(const std::string& name) {
    const auto endsWith = [&](std::string_view end) {
        return name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0;
    };
    return endsWith(".js")    ? "text/javascript; charset=utf-8"
           : endsWith(".css") ? "text/css; charset=utf-8"
                              : "text/html; charset=utf-8";
}

using Request = http::request<http::string_body>;
using Response = http::response<http::string_body>;
using Message = std::variant<std::string, std::vector<std::uint8_t>>;

std::size_t sizeOf(const Message& message) {
    return std::visit([](const auto& content) { return content.size(); }, message);
}

/// What all connections of one server share. Used on the server's thread only, but for the token, the port and `owner`.
struct Shared {
    asio::io_context owner; // what the listener is to be told; run by the thread that owns the server
    const std::string token = makeToken();
    unsigned short port = 0;
    PageServer::Parts parts;
    PageServer::Listener listener;
    std::map<PageServer::PageId, std::weak_ptr<class PageConnection>> pages;
    PageServer::PageId lastPage = 0;
    std::size_t connections = 0;

    [[nodiscard]] bool isOwnHost(std::string_view host) const {
        return host == "127.0.0.1:" + std::to_string(port) || host == "localhost:" + std::to_string(port);
    }
    [[nodiscard]] bool isOwnOrigin(std::string_view origin) const {
        return origin.substr(0, 7) == "http://" && isOwnHost(origin.substr(7));
    }
};

/// One page's WebSocket. Keeps itself alive while something is under way.
class PageConnection : public std::enable_shared_from_this<PageConnection> {
public:
    PageConnection(beast::tcp_stream stream, std::shared_ptr<Shared> shared)
        : m_socket(std::move(stream)), m_shared(std::move(shared)), m_id(++m_shared->lastPage) {}

    void accept(const Request& request) {
        m_socket.set_option(websocket::stream_base::timeout::suggested(beast::role_type::server));
        m_socket.read_message_max(largestRequest);
        m_socket.async_accept(request, [self = shared_from_this()](beast::error_code error) {
            if (!error) {
                self->opened();
            }
        });
    }

    void send(Message message) {
        m_waiting += sizeOf(message);
        if (m_waiting > mostWaiting) {
            logRefusal("a page does not take what is sent to it");
            closeNow();
            return;
        }
        m_queue.push_back(std::move(message));
        if (m_queue.size() == 1) {
            writeNext();
        }
    }

    void refuse(const std::string& why) {
        if (m_isOpen) {
            logRefusal(why);
            gone();
            m_socket.async_close({websocket::close_code::policy_error, "not understood"},
                                 [self = shared_from_this()](beast::error_code) {});
        }
    }

    void closeNow() { beast::get_lowest_layer(m_socket).close(); }

private:
    void opened() {
        m_shared->pages[m_id] = weak_from_this();
        asio::post(m_shared->owner, [shared = m_shared.get(), id = m_id] { shared->listener.came(id); });
        m_isOpen = true;
        readNext();
    }

    void readNext() {
        m_socket.async_read(m_buffer, [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (error == websocket::error::message_too_big) {
                logRefusal("a message of more than 1 MB");
            }
            if (error || !self->m_isOpen) {
                self->gone();
                return;
            }
            self->deliver(beast::buffers_to_string(self->m_buffer.data()));
            self->m_buffer.consume(self->m_buffer.size());
            self->readNext();
        });
    }

    void deliver(std::string text) {
        asio::post(m_shared->owner,
                   [shared = m_shared.get(), id = m_id, text = std::move(text)] { shared->listener.said(id, text); });
    }

    void writeNext() {
        const Message& next = m_queue.front();
        m_socket.text(std::holds_alternative<std::string>(next));
        const asio::const_buffer bytes =
            std::visit([](const auto& content) { return asio::const_buffer(content.data(), content.size()); }, next);
        m_socket.async_write(bytes, [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (error) {
                self->gone();
                return;
            }
            self->m_waiting -= sizeOf(self->m_queue.front());
            self->m_queue.pop_front();
            if (!self->m_queue.empty()) {
                self->writeNext();
            }
        });
    }

    void gone() {
        if (std::exchange(m_isOpen, false)) {
            m_shared->pages.erase(m_id);
            asio::post(m_shared->owner, [shared = m_shared.get(), id = m_id] { shared->listener.gone(id); });
        }
    }

    websocket::stream<beast::tcp_stream> m_socket;
    std::shared_ptr<Shared> m_shared;
    PageServer::PageId m_id;
    beast::flat_buffer m_buffer;
    std::deque<Message> m_queue; // the first one is under way
    std::size_t m_waiting = 0;   // bytes in the queue
    bool m_isOpen = false;
};

/// One HTTP connection: answers requests until it becomes a page's WebSocket or ends.
class Visit : public std::enable_shared_from_this<Visit> {
public:
    Visit(tcp::socket socket, std::shared_ptr<Shared> shared)
        : m_stream(std::move(socket)), m_shared(std::move(shared)) {
        ++m_shared->connections;
    }
    ~Visit() { --m_shared->connections; }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

    void readNext() {
        m_parser.emplace();
        m_parser->body_limit(largestRequest);
        m_stream.expires_after(requestPatience);
        http::async_read(
            m_stream, m_buffer, *m_parser, [self = shared_from_this()](beast::error_code error, std::size_t) {
                if (!error) {
                    self->answer(self->m_parser->release());
                } else if (error != http::error::end_of_stream && error != beast::error::timeout &&
                           error != asio::error::operation_aborted && error != asio::error::connection_reset) {
                    logRefusal("a request that is no good HTTP (" + error.message() + ")");
                }
            });
    }

private:
    void answer(Request request) {
        const std::string target(request.target());
        const std::string_view host = request[http::field::host];
        const std::string_view origin = request[http::field::origin];
        if (!m_shared->isOwnHost(host)) {
            refuse(http::status::misdirected_request, "the host \"" + printable(host) + "\"", request);
        } else if (!origin.empty() && !m_shared->isOwnOrigin(origin)) {
            refuse(http::status::forbidden, "the origin \"" + printable(origin) + "\"", request);
        } else if (!hasToken(target)) {
            refuse(http::status::not_found, "an address without the token", request);
        } else {
            answerPage(std::move(request), target.substr(1 + m_shared->token.size() + 1));
        }
    }

    /// "/TOKEN/…"
    [[nodiscard]] bool hasToken(std::string_view target) const {
        const std::size_t length = m_shared->token.size();
        return target.size() > length + 1 && target[0] == '/' && target[length + 1] == '/' &&
               equalInConstantTime(target.substr(1, length), m_shared->token);
    }

    void answerPage(Request request, const std::string& name) {
        if (name == "socket" && websocket::is_upgrade(request)) {
            if (!m_shared->isOwnOrigin(request[http::field::origin])) {
                refuse(http::status::forbidden, "a page without an origin", request);
                return;
            }
            m_stream.expires_never();
            std::make_shared<PageConnection>(std::move(m_stream), m_shared)->accept(request);
            return;
        }
        if (request.method() != http::verb::get && request.method() != http::verb::head) {
            refuse(http::status::method_not_allowed, "the method " + printable(request.method_string()), request);
            return;
        }
        const std::optional<std::string> part = m_shared->parts(name.empty() ? "index.html" : name);
        if (!part) {
            refuse(http::status::not_found, "no part of the page: " + printable(name), request);
            return;
        }
        Response response(http::status::ok, request.version());
        response.set(http::field::content_type, typeOf(name));
        respond(std::move(response), *part, request);
    }

    void refuse(http::status status, const std::string& why, const Request& request) {
        logRefusal(why);
        Response response(status, request.version());
        response.set(http::field::content_type, "text/plain; charset=utf-8");
        respond(std::move(response), "Refused.\n", request);
    }

    void respond(Response response, std::string body, const Request& request) {
        response.set(http::field::cache_control, "no-store");
        response.set("Content-Security-Policy",
                     "default-src 'none'; script-src 'self'; style-src 'self'; img-src data:; "
                     "connect-src 'self'; base-uri 'none'; form-action 'none'; "
                     "frame-ancestors 'none'");
        response.set("Referrer-Policy", "no-referrer");
        response.set("X-Content-Type-Options", "nosniff");
        response.keep_alive(request.keep_alive());
        response.content_length(body.size());
        if (request.method() != http::verb::head) {
            response.body() = std::move(body);
        }
        m_response = std::move(response);
        http::async_write(m_stream, m_response, [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (!error && self->m_response.keep_alive()) {
                self->readNext();
            } else {
                self->m_stream.socket().shutdown(tcp::socket::shutdown_send, error);
            }
        });
    }

    beast::tcp_stream m_stream;
    std::shared_ptr<Shared> m_shared;
    beast::flat_buffer m_buffer{largestRequest};
    std::optional<http::request_parser<http::string_body>> m_parser;
    Response m_response;
};

} // namespace

/// The thread, its sockets and what waits for a connection.
class PageServer::Worker {
public:
    Worker(Parts parts, Listener listener)
        : m_acceptor(m_context), m_ownerStays(m_shared->owner.get_executor()), m_signals(m_shared->owner) {
        m_shared->parts = std::move(parts);
        m_shared->listener = std::move(listener);
        m_signals.add(SIGINT);
        m_signals.add(SIGTERM);
        m_signals.async_wait([this](beast::error_code error, int) { m_interrupted = !error; });
    }

    ~Worker() {
        m_context.stop();
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    [[nodiscard]] std::optional<Failure> listen(unsigned short port) {
        const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
        beast::error_code error;
        m_acceptor.open(endpoint.protocol(), error);
        m_acceptor.set_option(asio::socket_base::reuse_address(true), error);
        m_acceptor.bind(endpoint, error);
        if (!error) {
            m_acceptor.listen(asio::socket_base::max_listen_connections, error);
        }
        if (error) {
            return Failure{"port " + std::to_string(port) + " cannot be used: " + error.message()};
        }
        m_shared->port = m_acceptor.local_endpoint().port();
        m_address = "http://127.0.0.1:" + std::to_string(m_shared->port) + "/" + m_shared->token + "/";
        acceptNext();
        m_thread = std::thread([this] { m_context.run(); });
        return std::nullopt;
    }

    [[nodiscard]] const std::string& address() const { return m_address; }

    void wait(std::chrono::nanoseconds patience) {
        m_shared->owner.run_one_for(patience);
        m_shared->owner.poll();
    }

    [[nodiscard]] bool wasInterrupted() const { return m_interrupted; }

    void withPage(PageId page, std::function<void(PageConnection&)> use) {
        asio::post(m_context, [shared = m_shared, page, use = std::move(use)] {
            const auto found = shared->pages.find(page);
            if (const auto connection = found == shared->pages.end() ? nullptr : found->second.lock()) {
                use(*connection);
            }
        });
    }

private:
    void acceptNext() {
        m_acceptor.async_accept([this](beast::error_code error, tcp::socket socket) {
            if (error == asio::error::operation_aborted) {
                return;
            }
            if (!error && m_shared->connections + m_shared->pages.size() < mostConnections) {
                beast::error_code ignored;
                socket.set_option(tcp::no_delay(true), ignored);
                std::make_shared<Visit>(std::move(socket), m_shared)->readNext();
            } else {
                logRefusal(error ? error.message() : "too many connections");
            }
            acceptNext();
        });
    }

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
    asio::io_context m_context; // run by the thread
    tcp::acceptor m_acceptor;
    asio::executor_work_guard<asio::io_context::executor_type> m_ownerStays;
    asio::signal_set m_signals;
    bool m_interrupted = false;
    std::string m_address;
    std::thread m_thread;
};

PageServer::PageServer(std::unique_ptr<Worker> worker) : m_worker(std::move(worker)) {}

PageServer::~PageServer() = default;

Result<std::unique_ptr<PageServer>> PageServer::start(unsigned short port, Parts parts, Listener listener) {
    auto worker = std::make_unique<Worker>(std::move(parts), std::move(listener));
    if (std::optional<Failure> failure = worker->listen(port)) {
        return *std::move(failure);
    }
    return std::unique_ptr<PageServer>(new PageServer(std::move(worker))); // NOLINT: the constructor is private
}

const std::string& PageServer::address() const {
    return m_worker->address();
}

void PageServer::wait(std::chrono::nanoseconds patience) {
    m_worker->wait(patience);
}

bool PageServer::wasInterrupted() const {
    return m_worker->wasInterrupted();
}

void PageServer::sendText(PageId page, std::string text) {
    m_worker->withPage(page, [text = std::move(text)](PageConnection& connection) { connection.send(text); });
}

void PageServer::sendBytes(PageId page, std::vector<std::uint8_t> bytes) {
    const auto shared = std::make_shared<std::vector<std::uint8_t>>(std::move(bytes));
    m_worker->withPage(page, [shared](PageConnection& connection) { connection.send(std::move(*shared)); });
}

void PageServer::refuse(PageId page, const std::string& why) {
    m_worker->withPage(page, [why](PageConnection& connection) { connection.refuse(why); });
}
