// JSON of `vw` compared with its schema.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

// What is wrong with the lines of `output`: each must be an object of a kind of the schema, with its fields and no
// others, and the same again when it is read and written. Adds the kinds to `kinds`.
std::vector<std::string> WrongObjects(std::string_view output, std::set<std::string>& kinds);

std::set<std::string> KindsOfSchema();
