#pragma once

#include <functional>
#include <string_view>

/// For the host, which reports how the program stops: called by fatalError() with its line, once that has been written,
/// on the thread that stops. It may end the program itself; when it returns, the program is aborted. An empty function
/// removes it.
void setFatalErrorHandler(std::function<void(std::string_view)> handler);
