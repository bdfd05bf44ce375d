#pragma once

#include "simulator/live/LivePhone.h"
#include "simulator/live/TouchableParts.h"

#include <cstdint>

// What the phone tells its pages, as docs/live.md describes it.

/// The devices that a page offers.
[[nodiscard]] const std::vector<std::string>& offeredDevices();

[[nodiscard]] std::string stateMessage(const LivePhone& phone);
[[nodiscard]] std::string elementsMessage(const std::vector<TouchablePart>& parts);
/// The extension's views, what holds them and where in the interface files that stands.
[[nodiscard]] std::string treeMessage(const LivePhone& phone);
[[nodiscard]] std::string debugMessage(std::int64_t milliseconds, const std::string& line);
[[nodiscard]] std::string linkMessage(std::int64_t milliseconds, const NSURL& url);
[[nodiscard]] std::string styleRequestMessage(std::int64_t milliseconds, const ConversationHost::StyleRequest& request);
[[nodiscard]] std::string flowMessage(const std::string& text);
/// So many messages of the page have been answered.
[[nodiscard]] std::string settledMessage(std::uint32_t heard);
[[nodiscard]] std::string findingsMessage(const Findings& findings);
