// The pipeline's door to the request map: which framework frame, CHI request and
// CamX requests belong together, and which image they became. It decides where
// the dumps of a request end: in the folder of its image, or deleted.
//
// The calls of one capture:
//   1. insertForChi      when the CHI request is created
//   2. insertForCamx     once for each camera that the request reaches; the
//                        record operations then dump under that CamX id
//   3. addForImageName   when the image is saved; it may also come first
// The map holds the newest 50 requests. One that leaves it (the ring is full or
// restarts, dequeueAll, process exit) has the files of its dump folders,
// /data/vendor/camera/tmp/RequestID[CamX id]_camId[camera], moved to the folder
// /data/vendor/camera/(image name), which the pipeline makes: a file that is
// there already is never overwritten, and what can't be moved stays where it is.
// Without an image name the dump folders are deleted.
//
// There is one map in a process, made by the first of these calls. At process exit
// it lets go of its oldest request only; of none when that is the newest, too, or
// when the map was neither full nor flushed since its first request.
//
// Threads: insertForChi, insertForCamx and addForImageName may be called from any
// thread and hold one lock while they run, moving files included. dequeueAll and
// setOffPreReqStart take no lock: call them when no other call is under way.
//
// No call reports an error but dequeueAll; dump folders that can't be moved or deleted
// are logged.
//
// A free slot has the ids 0. A call for the CHI id 0 or the frame 0 that no request has
// therefore finds the nearest free slot: its camera or image name is there when a
// request takes the slot, or counts when the slot is let go of.
#pragma once

#include <simulation/simulation.h>

#include <cstdint>
#include <vector>

extern "C" {

/// Adds a request: framework frame number and CHI request id. Takes the name
/// that was parked for the frame, if any. A CHI id of 0 stands for no request:
/// the next insertForChi takes the map as restarted and flushes it first, as
/// dequeueAll does. So does the first call in a process.
SIMULATION_API void insertForChi(std::uint64_t fwkID, std::uint64_t chiID);

/// Records the CamX request id that `chiID` has on camera `camId`; a second call
/// replaces the first. Of requests with the same CHI id the newest is meant. A CHI id
/// that is not in the map is ignored, unless it is 0. A camera of 6 or more aborts the
/// process.
SIMULATION_API void insertForCamx(std::uint64_t chiID, std::uint64_t camxID, std::uint32_t camId);

/// Names the image that the frames became, in the order given. `frameNumbers` is
/// never null; it is copied, before anything else is done, and not kept. The first 63
/// characters of the name count; a null or empty name does nothing. A frame that is not
/// in the map (0 aside) has its name parked until insertForChi brings it, in the place of
/// its position: there are 12, a later image parks over an earlier one, and positions past
/// them are not parked.
SIMULATION_API void addForImageName(std::vector<unsigned int>* frameNumbers, const char* imageName);

/// Lets go of every request but the newest, the end of a capture run, and
/// empties the folder /data/vendor/camera/tmp_asd. Returns 0, or not 0 when that
/// folder can't be opened or one of its entries not removed; the requests are
/// gone from the map either way.
SIMULATION_API int dequeueAll();

/// Offline processing: `offset` is subtracted from the frame numbers above it in
/// later addForImageName calls, to give those that insertForChi was told.
SIMULATION_API void setOffPreReqStart(std::uint64_t offset);

}  // extern "C"
