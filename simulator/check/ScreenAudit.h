#pragma once

#include "simulator/check/ScreenCheck.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/ScreenElement.h"

#include <memory>
#include <string>
#include <vector>

class Bitmap;
class UILabel;

/// Looks once at all views of the extension as they stand: whether texts are cut or hard to read, views reach out of
/// their superviews, targets are large enough and named, and elements are read in the order in which they are seen.
class ScreenAudit {
public:
    ScreenAudit(ConversationHost& host, std::vector<ScreenFinding>& findings) : m_host(host), m_findings(findings) {}

    void run();

private:
    using View = std::shared_ptr<UIView>;

    void collect(const View& view);
    void checkFrame(const UIView& view);
    void checkRow(const UIView& view);
    void checkTarget(const View& view);
    void checkText(const UILabel& label);
    void checkOrder();
    void checkContrasts();
    void checkContrast(const std::shared_ptr<UILabel>& label, const Bitmap& ground);

    struct Description {
        std::string path;
        std::optional<TextPlace> place;
        std::string name; // `<label id="abc"> "Text"`
    };
    [[nodiscard]] static Description describe(const UIView& view);
    [[nodiscard]] std::string lengthText(CGFloat points) const;
    void tell(const char* rule, const UIView& view, const std::string& what, const std::string& detail = "",
              double amount = 0);

    ConversationHost& m_host;
    std::vector<ScreenFinding>& m_findings;
    std::vector<std::shared_ptr<UILabel>> m_labels; // that can be seen whole
    std::vector<View> m_read;                       // what is read aloud, in order
};
