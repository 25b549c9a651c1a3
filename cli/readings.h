// The readings of a day, from the note set that has a table of them.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "app/navigation.h"
#include "cli/surroundings.h"

struct Reading {
    int verse = 0;     // where the note is
    std::string note;  // the text of the reading in UTF-8; empty if there is none
};

struct DayReadings {
    std::string set;  // its name
    Reading morning, evening;
};

// The readings of `date` from the first of the folders that has such a set; of several sets the last one, as in the
// window. nullopt if there is none.
std::optional<DayReadings> ReadingsOf(const Surroundings& surroundings, std::span<const std::string> folders,
                                      Date date);
