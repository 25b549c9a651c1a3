// The objects that the commands print with --json: their kinds and fields. The manual lists them, and tests compare
// every object with them.
#pragma once

#include <span>

enum class FieldType { kText, kNumber, kYesOrNo, kPlaces, kSpanOrNull, kSpans };

struct SchemaField {
    const char* name;
    FieldType type;
    const char* meaning;
    bool isOptional = false;
};

struct SchemaKind {
    const char* kind;  // the value of the field "kind", which every object has
    const char* meaning;
    std::span<const SchemaField> fields;     // besides "kind"
    std::span<const SchemaField> more = {};  // and these
};

std::span<const SchemaKind> TheSchema();

// "text", "number", ...
const char* NameOfType(FieldType type);
