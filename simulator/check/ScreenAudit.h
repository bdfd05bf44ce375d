#pragma once

#include "simulator/check/ScreenCheck.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/ScreenElement.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class Bitmap;
class UILabel;

/// Looks at all views of the extension as they stand: whether texts are cut or hard to read, views reach out of their
/// superviews, targets are large enough and named, and elements are read in the order in which they are seen. Made for
/// one device, looks as often as the screen changes, and says at the end what it could not measure.
class ScreenAudit {
public:
    ScreenAudit(ConversationHost& host, std::vector<ScreenFinding>& findings) : m_host(host), m_findings(findings) {}

    void lookInBothAppearances();
    /// The same with other contents: colours are measured only of what has not been seen before.
    void lookAtContents();
    /// Of views that no look could measure.
    void tellUnmeasured();

private:
    using View = std::shared_ptr<UIView>;

    void look();
    void collect(const View& view);
    void collectText(const std::shared_ptr<UILabel>& label);
    void checkFrame(const UIView& view);
    void checkRow(const UIView& view);
    void checkTarget(const UIView& view);
    void checkText(const UILabel& label);
    void checkOrder();
    void checkContrasts();
    void checkContrast(const UILabel& label, const Bitmap& ground);

    struct Description {
        std::string path;
        std::optional<TextPlace> place;
        std::string name; // `<label id="abc">`
        auto operator<=>(const Description&) const = default;
    };
    [[nodiscard]] static Description describe(const UIView& view);
    [[nodiscard]] std::string lengthText(CGFloat points) const;
    /// `amount` says how bad it is, for the choice among devices.
    void tell(const char* rule, const Description& about, const std::string& what, const std::string& detail = "",
              double amount = 0);

    ConversationHost& m_host;
    std::vector<ScreenFinding>& m_findings;
    std::vector<std::shared_ptr<UILabel>> m_labels; // of this look, that can be seen whole
    std::vector<View> m_read;                       // of this look: what is read aloud, in order
    std::set<Description> m_measured;
    std::map<Description, std::string> m_unmeasured; // and why
};
