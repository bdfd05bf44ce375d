#include "simulator/flows/FlowCommands.h"

#include "simulator/flows/FlowPlayer.h"
#include "simulator/pictures/PictureFile.h"
#include "simulator/pictures/ScreenPicture.h"

namespace {

namespace fs = std::filesystem;

struct PictureRequest {
    std::string name;
    PictureExtent extent = PictureExtent::screen;
};

/// Pictures stay in the folder that they are meant for.
std::string readPictureName(const FlowValue& value) {
    std::string name = value.name();
    for (const fs::path& part : fs::path(name)) {
        if (part == ".." || part.has_root_directory()) {
            value.complain("a picture's name is a path inside its folder, without '..'");
            return {};
        }
    }
    const std::string ending = ".png";
    if (name.ends_with(ending)) {
        name.resize(name.size() - ending.size());
    }
    const bool isNameless = fs::path(name).filename().string().find_first_not_of('.') == std::string::npos;
    if (isNameless && !value.node().text.empty()) { // an empty text is told already
        value.complain("'" + value.node().text + "' has no name before its ending");
    }
    return name;
}

PictureRequest readPicture(const FlowValue& value) {
    if (!value.isMap()) {
        return {readPictureName(value), PictureExtent::screen};
    }
    value.allowOnly({"path", "bare"});
    PictureRequest request;
    if (const auto path = value.find("path")) {
        request.name = readPictureName(*path);
    } else {
        value.complain("'path' must say what the picture is called");
    }
    if (const auto bare = value.find("bare"); bare && bare->word({"true", "false"}) == "true") {
        request.extent = PictureExtent::extension;
    }
    return request;
}

FlowAction readAssertScreenshot(const FlowValue& value) {
    return [request = readPicture(value)](FlowPlayer& player) -> std::optional<Failure> {
        const std::string golden = player.flow().besideIt(request.name + ".png");
        const std::optional<Failure> failure =
            compareWithGolden(takePicture(player.host(), request.extent), golden, request.name, player.pictures());
        if (!failure && player.pictures().updateGoldens) {
            player.host().note("picture", "golden picture " + golden);
        }
        return failure;
    };
}

FlowAction readSetAppearance(const FlowValue& value) {
    const auto style =
        value.word({"light", "dark"}) == "dark" ? UIUserInterfaceStyle::dark : UIUserInterfaceStyle::light;
    return [style](FlowPlayer& player) -> std::optional<Failure> {
        player.host().window().setUserInterfaceStyle(style);
        return std::nullopt;
    };
}

FlowAction readSetTextSize(const FlowValue& value) {
    const std::string name = value.word(textSizeNames());
    return [name](FlowPlayer& player) -> std::optional<Failure> {
        player.host().window().setContentSizeCategory(textSizeNamed(name));
        player.host().settle();
        return std::nullopt;
    };
}

} // namespace

FlowAction readTakeScreenshot(const FlowValue& value) {
    return [request = readPicture(value)](FlowPlayer& player) -> std::optional<Failure> {
        const fs::path file = player.pictures().output / (request.name + ".png");
        const std::optional<Failure> failure = savePicture(takePicture(player.host(), request.extent), file);
        if (!failure) {
            player.host().note("picture", "picture " + file.string());
        }
        return failure;
    };
}

const std::vector<FlowCommand>& pictureCommands() {
    static const std::vector<FlowCommand> commands{
        {"takeScreenshot", readTakeScreenshot},
        {"assertScreenshot", readAssertScreenshot},
        {"setAppearance", readSetAppearance},
        {"setTextSize", readSetTextSize},
    };
    return commands;
}
