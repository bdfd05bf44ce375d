#pragma once

#include "simulator/live/LivePhone.h"
#include "simulator/live/PageMessage.h"
#include "simulator/live/PageServer.h"
#include "simulator/live/PendingPicture.h"

#include <deque>
#include <map>

/// Shows one phone on any number of pages: hears what they do and tells them what changes, as docs/live.md describes.
/// Made by the command; used on the main thread between turns of the run loop.
class LiveSession {
public:
    /// Where messages go.
    struct Out {
        std::function<void(PageServer::PageId, std::string)> text;
        std::function<void(PageServer::PageId, std::vector<std::uint8_t>)> bytes;
        std::function<void(PageServer::PageId, const std::string& why)> refuse;
    };

    LiveSession(LivePhone& phone, Out out);
    ~LiveSession();
    LiveSession(const LiveSession&) = delete;
    LiveSession& operator=(const LiveSession&) = delete;

    void came(PageServer::PageId page);
    void gone(PageServer::PageId page);
    void said(PageServer::PageId page, const std::string& text);
    /// Tells every page what has changed since the last call. Paints nothing when there is no page.
    void update();
    /// How soon update() has something to do even when nothing happens; none: never.
    [[nodiscard]] std::optional<std::chrono::nanoseconds> patience() const;

private:
    struct Page {
        PendingPicture pending;
        std::uint32_t lastNumber = 0;
        bool isUnderWay = false; // the picture of that number
        bool inspects = false;
        std::string tree;        // as last told
        std::uint32_t heard = 0; // messages, those about pictures aside
        bool isSettled = false;  // and has been told so
    };
    using Handler = void (LiveSession::*)(PageServer::PageId, PageMessage&);

    [[nodiscard]] static const std::map<std::string, Handler>& handlers();
    void heardShown(PageServer::PageId page, PageMessage& message);
    void heardAgain(PageServer::PageId page, PageMessage& message);
    void heardTouch(PageServer::PageId page, PageMessage& message);
    void heardWheel(PageServer::PageId page, PageMessage& message);
    void heardTap(PageServer::PageId page, PageMessage& message);
    void heardKey(PageServer::PageId page, PageMessage& message);
    void heardSet(PageServer::PageId page, PageMessage& message);
    void heardRestart(PageServer::PageId page, PageMessage& message);
    void heardMessage(PageServer::PageId page, PageMessage& message);
    void heardInspect(PageServer::PageId page, PageMessage& message);

    void tellAll(const std::string& text);
    void tellIfNew(std::string& told, std::string text);
    void remember(std::string text);
    void tellEvents();
    void tellElements();
    void tellTrees();
    void tellSettled();
    void sendPictures();
    [[nodiscard]] std::int64_t milliseconds() const;

    LivePhone& m_phone;
    Out m_out;
    std::map<PageServer::PageId, Page> m_pages;
    std::optional<PageServer::PageId> m_toucher; // whose finger is down
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::deque<std::string> m_history; // for pages that come later: debug lines, links, style requests
    std::string m_state;               // as last told
    std::string m_elements;            // likewise
    std::string m_findings;            // likewise
    std::string m_flow;                // likewise
    unsigned m_flowRevision = 0;       // that was told last
    int m_run = 0;                     // of the phone, that the numbers below are of
    std::size_t m_linksTold = 0;
    std::size_t m_requestsTold = 0;
    bool m_elementsAreDue = false;
    std::chrono::steady_clock::time_point m_elementsNext; // not told before
};
