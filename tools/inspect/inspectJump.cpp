#include "library/JumpFileEntry.h"
#include "library/Jumper.h"
#include "tools/inspect/HeadlessModel.h"
#include "tools/inspect/commands.h"
#include "tools/inspect/writeJump.h"

#include <charconv>
#include <filesystem>
#include <vector>

namespace ospra {

namespace {

/// What the command line asks for, in the order in which it is done.
struct JumpOptions {
    std::vector<std::string> files{};
    bool metric = true;
    bool aboveGround = true;
    std::vector<std::size_t> hidden{};
    std::optional<std::string> zoom{};
    std::optional<double> hover{};
};

std::optional<double> number(std::string_view text)
{
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<std::vector<std::size_t>> indices(std::string_view text)
{
    std::vector<std::size_t> list;
    while (!text.empty()) {
        std::size_t index = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
        if (error != std::errc{})
            return std::nullopt;
        list.push_back(index);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (!text.empty() && text.front() != ',')
            return std::nullopt;
        if (!text.empty())
            text.remove_prefix(1);
    }
    return list;
}

/// One option with its value. @return false if it is wrong
bool takeValue(JumpOptions& options, std::string_view option, const std::string& value)
{
    if (option == "--hidden") {
        const auto list = indices(value);
        options.hidden = list.value_or(std::vector<std::size_t>{});
        return list.has_value();
    }
    if (option == "--zoom") {
        options.zoom = value;
        return true;
    }
    options.hover = number(value);
    return options.hover.has_value();
}

std::optional<JumpOptions> parseOptions(std::span<const std::string> arguments)
{
    JumpOptions options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--metric" || argument == "--imperial") {
            options.metric = argument == "--metric";
        } else if (argument == "--agl" || argument == "--msl") {
            options.aboveGround = argument == "--agl";
        } else if (argument == "--hidden" || argument == "--zoom" || argument == "--hover") {
            if (++index == arguments.size() || !takeValue(options, argument, arguments[index]))
                return std::nullopt;
        } else if (argument.starts_with("--")) {
            return std::nullopt;
        } else {
            options.files.push_back(argument);
        }
    }
    if (options.files.empty())
        return std::nullopt;
    return options;
}

/// Each file belongs to a jumper of its own, named for the folder that holds it.
LoadRequest requestFor(const std::vector<std::string>& files, DisplayUnits units)
{
    LoadRequest request{.units = units};
    for (const std::string& file : files) {
        const std::filesystem::path path = std::filesystem::absolute(file).lexically_normal();
        request.jumpers.push_back(makeJumper(path.parent_path(), request.jumpers.size()));
        request.entries.push_back({.url = path, .name = logName(path), .jumperID = request.jumpers.back().id});
    }
    return request;
}

/// @return false for a zoom that does not exist
bool applyZoom(OspraModel& model, const std::string& zoom)
{
    struct Row {
        std::string_view name;
        ZoomMode mode;
    };
    for (const Row& row : {Row{"freefall", ZoomMode::freefall}, Row{"canopy", ZoomMode::canopy},
                           Row{"freefallAndCanopy", ZoomMode::freefallAndCanopy}}) {
        if (zoom == row.name) {
            model.chooseZoomMode(row.mode);
            return true;
        }
    }
    if (zoom == "none") {
        model.clearZoom();
        return true;
    }
    const std::size_t comma = zoom.find(',');
    if (comma == std::string::npos)
        return false;
    const std::optional<double> lo = number(std::string_view(zoom).substr(0, comma));
    const std::optional<double> hi = number(std::string_view(zoom).substr(comma + 1));
    if (lo && hi)
        model.zoomToDrag(*lo, *hi);
    return lo && hi;
}

} // namespace

std::optional<std::string> inspectJump(std::span<const std::string> arguments)
{
    const std::optional<JumpOptions> options = parseOptions(arguments);
    if (!options)
        return std::nullopt;
    HeadlessModel headless;
    OspraModel& model = headless.model();
    model.setUseMetric(options->metric);
    model.setUseAGL(options->aboveGround);
    model.loadTracks(requestFor(options->files, model.units()));
    headless.waitUntilLoaded();
    JsonWriter json;
    if (model.hasError()) {
        json.beginObject();
        json.member("error", std::string_view(*model.errorMessage()));
        json.endObject();
        return json.text();
    }
    for (const std::size_t index : options->hidden)
        if (index < model.tracks().size())
            model.toggleTrackVisibility(model.tracks()[index].id);
    if (options->zoom && !applyZoom(model, *options->zoom))
        return std::nullopt;
    if (options->hover)
        model.setHoveredSeconds(*options->hover);
    writeJump(json, model);
    return json.text();
}

} // namespace ospra
