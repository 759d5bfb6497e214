// The lens-shading gain table as an XML file. No state, no locks.
#pragma once

namespace simulation {

/// Writes an LscTable to `path`; the outcome is logged.
void dumpGainTable(const void* table, const char* path);

/// Writes the gains of `path` into `outTable`, every value where its place in
/// the file puts it: neither channels nor values are counted. False when the
/// file can't be loaded (logged) or holds no table. A text that is no number
/// throws what std::stof throws; the channels before it are written by then.
bool readGainTable(const char* path, float* outTable);

}  // namespace simulation
