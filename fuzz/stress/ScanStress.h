// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Scans of a large model that another thread cuts short, writes again, grows or replaces at a
// random moment, as an exporter does that writes the model while the author opens the rig
// binding. Every scan must return, with the model's lists or a part of them from the front.

#include <random>

class QString;

class ScanStress {
public:
    explicit ScanStress(unsigned seed) : m_random(seed) {}

    // Scans a model in `directory` `rounds` times, each while it changes. True when every
    // scan returned True with such lists.
    bool scanChangingModels(const QString& directory, int rounds);

private:
    std::mt19937 m_random;
};
