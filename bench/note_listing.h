// Benchmarks listing the notes with given words, beside a floor that reads the same files once.
#pragma once

// Prints its rows.
void MeasureListing();
