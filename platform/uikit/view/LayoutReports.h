#pragma once

#include <functional>
#include <string>

struct LayoutResult;

/// Is told of constraints that contradict each other and of views whose place they leave open, each text once. One
/// observer a process; none at first, and then nothing is kept.
void setLayoutReportObserver(std::function<void(const std::string&)> observer);

/// For the layout: hands on what the solver found.
void reportLayout(const LayoutResult& result);
