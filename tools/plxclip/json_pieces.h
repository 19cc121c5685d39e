// Pieces of clips as JSON, for any of the writers.
#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "json_writer.h"
#include "snapshot.h"

namespace plxclip {

template <typename Output>
void writeTags(Output& json, const Tags& tags)
{
    json.object("tags", [&] {
        json.list("types", tags.types);
        json.list("genres", tags.genres);
        json.list("languages", tags.languages);
        json.list("singerGroups", tags.singerGroups);
        json.list("singerIDs", tags.singerIDs);
        json.list("vendors", tags.vendors);
    });
}

template <typename Output>
void writeProperties(Output& json, const Properties& clip)
{
    json.member("id", clip.id);
    json.member("name", clip.name);
    json.member("vendor", clip.vendor);
    json.member("kind", std::string_view(clip.isUserClip ? "user" : "system"));
    json.member("path", clip.path);
    json.member("part", nameOf(clip.partType));
    json.member("key", clip.key);
    json.member("tempo", clip.tempo);
    writeTags(json, clip.tags);
}

template <typename Output>
void writeDvqm(Output& json, std::string_view name, const Dvqm& dvqm)
{
    json.object(name, [&] {
        json.member("component", dvqm.component);
        json.list("levelNames", dvqm.levelNames);
        json.member("isProtected", dvqm.isProtected);
        json.member("speed", dvqm.speed);
        json.member("topFactor", dvqm.topFactor);
    });
}

template <typename Output>
void writeValues(Output& json, const std::vector<NamedValue>& values)
{
    for (const NamedValue& each : values) {
        json.key(each.name);
        std::visit([&json](auto value) { json.value(value); }, each.value);
    }
}

template <typename Output>
void writeSkill(Output& json, const SingingSkill& skill)
{
    json.object("singingSkill", [&] {
        json.member("duration", skill.duration);
        json.member("pre", skill.preWeight);
        json.member("post", skill.postWeight);
    });
}

template <typename Output>
struct ValueWriter {
    Output& json;
    void operator()(std::monostate) const { json.null(); }
    template <typename Value>
    void operator()(const Value& value) const
    {
        json.value(value);
    }
};

template <typename Output>
void writeParameter(Output& json, const Parameter& parameter)
{
    json.member("name", parameter.name);
    json.key("value");
    std::visit(ValueWriter<Output>{json}, parameter.value);
}

template <typename Output>
void writeEffect(Output& json, const Effect& effect)
{
    json.member("id", effect.id);
    json.objects("parameters", effect.parameters, writeParameter<Output>);
}

template <typename Output>
void writeEffects(Output& json, std::string_view name, const std::vector<Effect>& effects)
{
    json.objects(name, effects, writeEffect<Output>);
}

} // namespace plxclip
