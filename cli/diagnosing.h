// Looking at all that `vw doctor` tells. No file is changed.
#pragma once

#include "cli/diagnosis.h"

// Waits two seconds for the lock if another program has it.
Diagnosis Diagnose(const Vw& vw);
