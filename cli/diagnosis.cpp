// Apart from the looking, which is spread over several files.
#include "cli/diagnosis.h"

#include <algorithm>

bool IsTold(const Diagnosis& diagnosis, const std::string& text) {
    return std::ranges::any_of(diagnosis.troubles,
                               [&](const Trouble& trouble) { return trouble.text.find(text) != std::string::npos; });
}
