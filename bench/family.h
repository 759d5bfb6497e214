// A family of records as the benchmarks see it: inputs to dump, the same
// operation in the library and in its plain version, and the memory that a
// readback fills.
#pragma once

#include <simulation/simulation.h>

#include <cstddef>
#include <vector>

namespace bench {

using Bytes = std::vector<char>;

/// One call of an operation. The input's number is also its camera and exposure
/// step, so that each input has a readback file of its own.
struct Call {
  SimulationInfo info;
  unsigned int request;
  unsigned int input;
};

using Run = void (*)(Call& call, void* data);

struct Family {
  std::vector<Bytes> inputs;
  Run library;
  Run plain;
};
using Families = std::vector<Family>;

/// The process-wide object whose operations are measured.
inline Simulation& simulation() { return *SimulationMgr::getInstance(); }

/// @name Families, each with `inputs` different records
/// @{
Families qsegLabelMaps(std::size_t inputs);  ///< like real segmentations: few labels, long runs
Families qsegRandomBytes(std::size_t inputs);
Families plainStatistics(std::size_t inputs);
Families pairedStatistics(std::size_t inputs);
Families lensShading(std::size_t inputs);
Families smallXmlRecords(std::size_t inputs);  ///< all ten
Families stagedBinaries(std::size_t inputs);
Families directBinaries(std::size_t inputs);
Families faceDetection(std::size_t inputs);  ///< six blocks, each opened by itself
Families acbPlanes(std::size_t inputs);
Families wholeRequest(std::size_t inputs);
/// @}

}  // namespace bench
