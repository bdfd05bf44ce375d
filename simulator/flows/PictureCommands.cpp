#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"
#include "simulator/pictures/PictureFile.h"
#include "simulator/pictures/ScreenPicture.h"

namespace {

namespace fs = std::filesystem;

struct PictureRequest {
    std::string name;
    PictureExtent extent = PictureExtent::screen;
};

PictureRequest pictureIn(const FlowValue& value) {
    fs::path name = value.itselfOr("path")->text();
    if (name.extension() == ".png") {
        name.replace_extension();
    }
    const bool isBare = value.find("bare", &FlowValue::isTrue).value_or(false);
    return {name.string(), isBare ? PictureExtent::extension : PictureExtent::screen};
}

FlowAction makeAssertScreenshot(const FlowValue& value) {
    const PictureRequest request = pictureIn(value);
    return [request, start = value.reading().besideIt(request.name)](FlowPlayer& player) -> std::optional<Failure> {
        const std::string golden = player.goldenFile(start, ".png");
        const std::optional<Failure> failure =
            compareWithGolden(takePicture(player.host(), request.extent), golden, request.name, player.pictures());
        if (!failure && player.pictures().goldens == Goldens::renew) {
            player.host().note("picture", "golden picture " + golden);
        }
        return failure;
    };
}

FlowAction makeSetAppearance(const FlowValue& value) {
    const auto style = value.text() == "dark" ? UIUserInterfaceStyle::dark : UIUserInterfaceStyle::light;
    return [style](FlowPlayer& player) -> std::optional<Failure> {
        player.host().window().setUserInterfaceStyle(style);
        return std::nullopt;
    };
}

FlowAction makeSetTextSize(const FlowValue& value) {
    return [name = value.text()](FlowPlayer& player) -> std::optional<Failure> {
        player.host().window().setContentSizeCategory(textSizeNamed(name));
        player.host().settle();
        return std::nullopt;
    };
}

} // namespace

FlowAction makeTakeScreenshot(const FlowValue& value) {
    return [request = pictureIn(value)](FlowPlayer& player) -> std::optional<Failure> {
        const fs::path file = player.pictures().output / (request.name + ".png");
        const std::optional<Failure> failure = savePicture(takePicture(player.host(), request.extent), file);
        if (!failure) {
            player.host().note("picture", "picture " + file.string());
        }
        return failure;
    };
}

namespace {

const FlowKeys picture{{"path", {FlowType::picture}, "what it is called, without .png", FlowNeed::required},
                       {"bare", {FlowType::truth}, "true: of the extension alone"}};
const FlowCommands commands{
    {"takeScreenshot",
     {{FlowType::picture}},
     picture,
     "a picture in the output folder",
     {"takeScreenshot: opened", "takeScreenshot: {path: opened, bare: true}"},
     makeTakeScreenshot},
    {"assertScreenshot",
     {{FlowType::picture}},
     picture,
     "the screen is, to the pixel, the golden picture beside the flow",
     {"assertScreenshot: opened"},
     makeAssertScreenshot},
    {"setAppearance",
     {{FlowType::word, {"light", "dark"}}},
     {},
     "the phone changes its appearance",
     {"setAppearance: dark"},
     makeSetAppearance},
    {"setTextSize",
     {{FlowType::word, textSizeNames()}},
     {},
     "the reader sets a text size",
     {"setTextSize: accessibility1"},
     makeSetTextSize},
};

} // namespace

const FlowCommands& pictureCommands() {
    return commands;
}
