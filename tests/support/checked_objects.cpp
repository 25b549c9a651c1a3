#include "tests/support/checked_objects.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/schema.h"

using nlohmann::ordered_json;

static bool IsSpan(const ordered_json& value) {
    return value.is_object() && value.size() == 3 && value.value("first", ordered_json()).is_number_integer() &&
           value.value("last", ordered_json()).is_number_integer() && value.value("name", ordered_json()).is_string();
}

static bool ArePlaces(const ordered_json& value) {
    return value.is_array() && std::ranges::all_of(value, [](const ordered_json& place) {
               return place.is_array() && place.size() == 2 && place[0].is_number_integer() &&
                      place[1].is_number_integer() && place[0] < place[1];
           });
}

static bool HasType(const ordered_json& value, FieldType type) {
    switch (type) {
        case FieldType::kText: return value.is_string();
        case FieldType::kNumber: return value.is_number_integer();
        case FieldType::kYesOrNo: return value.is_boolean();
        case FieldType::kPlaces: return ArePlaces(value);
        case FieldType::kSpanOrNull: return value.is_null() || IsSpan(value);
        case FieldType::kSpans: return value.is_array() && std::ranges::all_of(value, IsSpan);
    }
    return false;
}

// How many of the fields the object has; nullopt if one is missing or has another type.
static std::optional<std::size_t> FieldsIn(const ordered_json& object, std::span<const SchemaField> fields) {
    std::size_t known = 0;
    for (const SchemaField& field : fields) {
        if (!object.contains(field.name) && field.isOptional) continue;
        if (!object.contains(field.name) || !HasType(object[field.name], field.type)) return std::nullopt;
        ++known;
    }
    return known;
}

static bool Fits(const ordered_json& object, const SchemaKind& kind) {
    const auto fields = FieldsIn(object, kind.fields), more = FieldsIn(object, kind.more);
    return fields && more && object.size() == 1 + *fields + *more;
}

static bool IsAsDescribed(const std::string& line, std::set<std::string>& kinds) {
    const ordered_json object = ordered_json::parse(line, nullptr, false);
    if (!object.is_object() || object.dump() != line || !object.contains("kind") || !object["kind"].is_string())
        return false;
    const std::string name = object["kind"];
    const auto kind = std::ranges::find_if(TheSchema(), [&](const SchemaKind& each) { return each.kind == name; });
    kinds.insert(name);
    return kind != TheSchema().end() && Fits(object, *kind);
}

std::vector<std::string> WrongObjects(std::string_view output, std::set<std::string>& kinds) {
    std::vector<std::string> wrong;
    while (!output.empty()) {
        const std::string line(output.substr(0, output.find('\n')));
        output.remove_prefix(std::min(line.size() + 1, output.size()));
        if (!IsAsDescribed(line, kinds)) wrong.push_back(line);
    }
    return wrong;
}

std::set<std::string> KindsOfSchema() {
    std::set<std::string> kinds;
    for (const SchemaKind& kind : TheSchema()) kinds.insert(kind.kind);
    return kinds;
}
