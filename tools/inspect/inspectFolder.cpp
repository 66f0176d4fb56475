#include "library/groupJumps.h"
#include "library/scanFolder.h"
#include "platform/FolderAccess.h"
#include "platform/NaturalOrder.h"
#include "tools/inspect/JsonWriter.h"
#include "tools/inspect/commands.h"

#include <algorithm>
#include <vector>

namespace ospra {

namespace {

void writeEntry(JsonWriter& json, const JumpFileEntry& entry, std::span<const Jumper> jumpers)
{
    const auto jumper = std::ranges::find(jumpers, entry.jumperID, &Jumper::id);
    json.beginObject();
    json.member("path", entry.url.lexically_relative(jumper->directoryURL).native());
    json.member("name", entry.name);
    json.member("jumpDate", entry.jumpDate);
    json.member("freefallDate", entry.freefallDate);
    json.member("jumper", std::int64_t{jumper - jumpers.begin()});
    json.endObject();
}

void writeJumper(JsonWriter& json, const Jumper& jumper, std::span<const JumpFileEntry> entries,
                 std::span<const Jumper> jumpers)
{
    json.beginObject();
    json.member("name", jumper.name);
    json.member("color", colorName(jumper.color));
    json.key("entries").beginList();
    for (const JumpFileEntry& entry : entries)
        writeEntry(json, entry, jumpers);
    json.endList();
    json.endObject();
}

void writeGroup(JsonWriter& json, const JumpGroup& group, std::span<const Jumper> jumpers)
{
    json.beginObject();
    json.key("primaryEntry");
    writeEntry(json, group.primaryEntry, jumpers);
    json.key("companionEntries").beginList();
    for (const JumpFileEntry& entry : group.companionEntries)
        writeEntry(json, entry, jumpers);
    json.endList();
    json.member("jumpDate", group.jumpDate);
    json.endObject();
}

} // namespace

std::optional<std::string> inspectFolder(std::span<const std::string> arguments)
{
    if (arguments.empty())
        return std::nullopt;
    std::vector<Jumper> jumpers;
    std::vector<std::vector<JumpFileEntry>> entries;
    for (const std::string& folder : arguments) {
        jumpers.push_back(makeJumper(standardizedPath(std::filesystem::absolute(folder)), jumpers.size()));
        entries.push_back(scanFolder(jumpers.back()));
    }
    JsonWriter json;
    json.beginObject();
    json.key("jumpers").beginList();
    for (std::size_t index = 0; index < jumpers.size(); ++index)
        writeJumper(json, jumpers[index], entries[index], jumpers);
    json.endList();
    json.key("groups").beginList();
    for (const JumpGroup& group : groupJumps(entries, *makeNaturalOrder()))
        writeGroup(json, group, jumpers);
    json.endList();
    json.endObject();
    return json.text();
}

} // namespace ospra
