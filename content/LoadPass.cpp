#include "content/LoadPass.h"

#include "content/CurrentOption.h"
#include "content/ModeListLoader.h"

#include "platform/dispatch/Dispatch.h"

#include <optional>
#include <utility>

ContentMap readContentMap() {
    ContentMap contentMap;
    std::string text;
    for (const CurrentOption option : contentLoadOrder()) {
        const std::string& key = rawValue(option);
        if (std::optional<std::vector<ModeSection>> sections = loadModeSections(key, text)) {
            contentMap.emplace(key, std::move(*sections));
        }
    }
    return contentMap;
}

void loadAllModeSections(const std::weak_ptr<ContentMapReceiver>& receiver) {
    dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED), [receiver] {
        std::shared_ptr<ContentMapReceiver> screen = receiver.lock();
        if (!screen) {
            return;
        }
        ContentMap contentMap = readContentMap();
        // The strong reference moves along: a screen must never be destroyed on a background thread.
        dispatch_async(dispatch_get_main_queue(),
                       [screen = std::move(screen), contentMap = std::move(contentMap)]() mutable {
                           screen->applyContentMap(std::move(contentMap));
                       });
    });
}
