#include "content/LoadPass.h"

#include "content/CurrentOption.h"
#include "platform/dispatch/MainRunLoop.h"
#include "platform/foundation/NSBundle.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <thread>

namespace {

const std::thread::id mainThread = std::this_thread::get_id();

/// What happened to a receiver, told to someone who outlives it.
struct Story {
    std::optional<ContentMap> map;
    bool isGone = false;
};

/// Only the main thread may hand it the map or touch its end.
class Receiver : public ContentMapReceiver {
public:
    explicit Receiver(Story& story) : m_story(story) {}
    ~Receiver() override {
        EXPECT_EQ(std::this_thread::get_id(), mainThread);
        m_story.isGone = true;
    }
    void applyContentMap(ContentMap contentMap) override {
        EXPECT_EQ(std::this_thread::get_id(), mainThread);
        EXPECT_FALSE(m_story.map) << "handed over twice";
        m_story.map = std::move(contentMap);
    }

private:
    Story& m_story;
};

class LoadPass : public testing::Test {
protected:
    LoadPass() {
        NSBundle::setMainBundle(folder.path());
        loop.useVirtualClock();
    }
    ~LoadPass() override { loop.useVirtualClock(); }

    void writeAllFiles() {
        for (const CurrentOption option : contentLoadOrder()) {
            folder.write(rawValue(option) + ".json",
                         R"([{"sectionTitle": ")" + rawValue(option) + R"(", "items": []}])");
        }
    }

    MainRunLoop& loop = MainRunLoop::shared();
    support::TemporaryFolder folder;
    Story story;
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>(story);
};

} // namespace

TEST_F(LoadPass, HandsOverTheListsOfAllOptionsOnTheMainQueue) {
    writeAllFiles();
    loadAllModeSections(receiver);
    EXPECT_FALSE(story.map) << "inside the call";
    loop.runUntilIdle();
    ASSERT_TRUE(story.map);
    EXPECT_EQ(story.map->size(), 11U);
    for (const auto& [key, sections] : *story.map) {
        ASSERT_EQ(sections.size(), 1U) << key;
        EXPECT_EQ(sections.front().sectionTitle(), key);
    }
}

TEST_F(LoadPass, LeavesOutWhatIsMissingOrBadAndSaysSoInTheOrderOfReading) {
    folder.write("Couple.json", "[]");
    folder.write("Dating.json", "{}");
    loadAllModeSections(receiver);
    loop.runUntilIdle();
    EXPECT_EQ(
        support::takeStandardOutput(),
        "❌ JSON file not found: Adult (18+)\n"
        "❌ JSON file not found: Friends\n"
        "❌ JSON file not found: Family\n"
        "❌ JSON file not found: Spin The Bottle\n"
        "❌ JSON file not found: Is It Cheating?\n"
        "❌ JSON file not found: Pickup Lines\n"
        "❌ JSON file not found: Put A Finger Down\n"
        "❌ JSON file not found: Who’s Most Likely\n"
        "❌ JSON Decode Error: Dating.json: line 1, column 1: the file must hold an array of sections, but holds an "
        "object\n"
        "❌ JSON file not found: Ice Breaker\n");
    ASSERT_TRUE(story.map);
    EXPECT_EQ(story.map->size(), 1U);
    EXPECT_EQ(story.map->count("Couple"), 1U) << "an empty list is a list";
}

TEST_F(LoadPass, ReadsNothingForAScreenThatIsGone) {
    loadAllModeSections(receiver);
    receiver = nullptr;
    EXPECT_TRUE(story.isGone) << "the pass must not keep it before it runs";
    loop.runUntilIdle();
    EXPECT_FALSE(story.map);
}

TEST_F(LoadPass, KeepsAScreenThatItBeganForUntilItHasTheMap) {
    writeAllFiles();
    loadAllModeSections(receiver);
    loop.runReady(); // the pass has read, its block waits on the main queue
    receiver = nullptr;
    EXPECT_FALSE(story.map);
    EXPECT_FALSE(story.isGone);
    loop.runUntilIdle();
    EXPECT_TRUE(story.map);
    EXPECT_TRUE(story.isGone);
}

TEST_F(LoadPass, RunsForSeveralScreensAtOnceAndReleasesThemOnTheMainThread) {
    constexpr std::size_t count = 24;
    writeAllFiles();
    std::vector<Story> stories(count);
    loop.useRealClock(); // the passes start at once, while this thread goes on
    std::vector<std::shared_ptr<Receiver>> kept;
    for (std::size_t i = 0; i < count; ++i) {
        const auto one = std::make_shared<Receiver>(stories[i]);
        loadAllModeSections(one);
        if (i % 2 == 0) {
            kept.push_back(one); // the others lose their owner while their pass may be running
        }
    }
    const auto isOver = [](const Story& told) { return told.map || told.isGone; };
    while (!std::all_of(stories.begin(), stories.end(), isOver)) {
        loop.runReady();
        std::this_thread::yield();
    }
}
