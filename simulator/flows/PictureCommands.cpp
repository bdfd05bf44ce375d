#include "simulator/flows/FlowCommands.h"

#include "simulator/flows/FlowPlayer.h"
#include "simulator/pictures/PictureComparison.h"
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

} // namespace

FlowAction readTakeScreenshot(const FlowValue& value) {
    return [request = readPicture(value)](FlowPlayer& player) -> Outcome {
        const fs::path file = player.pictures().output / (request.name + ".png");
        const Outcome failure = savePicture(takePicture(player.host(), request.extent), file);
        if (!failure) {
            player.host().note("picture", "picture " + file.string());
        }
        return failure;
    };
}

FlowAction readAssertScreenshot(const FlowValue& value) {
    return [request = readPicture(value)](FlowPlayer& player) -> Outcome {
        const PictureSettings& settings = player.pictures();
        const std::string golden = player.besideFlow(request.name + ".png");
        const Outcome failure = compareWithGolden(takePicture(player.host(), request.extent),
                                                  {golden, settings.output, request.name, settings.updateGoldens});
        if (!failure && settings.updateGoldens) {
            player.host().note("picture", "golden picture " + golden);
        }
        return failure;
    };
}

FlowAction readSetAppearance(const FlowValue& value) {
    const std::string word = value.word({"light", "dark"});
    return [style = word == "dark" ? UIUserInterfaceStyle::dark
                                   : UIUserInterfaceStyle::light](FlowPlayer& player) -> Outcome {
        player.host().window().setUserInterfaceStyle(style);
        return std::nullopt;
    };
}
