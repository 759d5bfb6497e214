// The record operations of libsimulation: what the camera pipeline calls to
// dump the inputs of its 3A algorithms, or to have recorded inputs written back
// over the live ones.
//
// Every operation reads SimulationInfo::mode: 0 dumps, 1 reads back, any other
// value touches no file and no record. A dump goes to
//   /data/vendor/camera/tmp/RequestID[request]_camId[camera]/
// a readback always reads the files straight under /data/vendor/camera, whatever
// the request: to replay a capture, copy one request's files there. Offline AWB,
// LSC and ACB dumps go to the folder that SimulationInfo::folderName names.
//
// Record operations report no error to the caller (some XML records throw what the
// standard conversions throw, LSC returns whether it went on): a failure
// is a line or two in the log (tag "[SIMULATION]") and leaves the live data in
// place unless an operation says otherwise. The caller owns every pointer it passes;
// nothing is kept after the call.
//
// Threads: operations share no state (the LSC sequence counter has a mutex of
// its own). Calls that name the same file must not overlap.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#if !defined(SIMULATION_API)
#define SIMULATION_API __attribute__((visibility("default")))
#endif

/// The data family of a record. Its name is the word in the record's file name:
/// simulation_AWB_..., simulation_AE_... A value past ACB aborts the process.
enum class FileType : std::uint32_t {
  IMG = 0,
  AWB = 1,
  ZOAWB = 2,
  OfflineAWB = 3,
  AE = 4,
  LSC = 5,
  AnchorPick = 6,
  SRAnchorPick = 7,
  FACE = 8,
  ACB = 9,
};

/// The context of a record operation, owned by the caller and only read here.
struct SimulationInfo {
  std::uint8_t unread[8];  ///< the pipeline's own; the library never reads it
  const char* folderName;  ///< folder under /data/vendor/camera, NUL-terminated; only
                           ///< offline AWB, LSC and ACB records read it
  std::uint32_t mode;      ///< 0 dump, 1 readback, anything else: do nothing
};
static_assert(offsetof(SimulationInfo, folderName) == 8, "fixed by the pipeline");
static_assert(offsetof(SimulationInfo, mode) == 8 + sizeof(void*), "fixed by the pipeline");

/// The operations. Objects carry no data; the pipeline uses the process-wide one
/// of SimulationMgr::getInstance().
///
/// In every record operation `data` is the caller's record (the input as the
/// algorithm is about to see it: read by a dump, overwritten by a readback),
/// `requestId` the CamX request id and `camId` the camera.
class SIMULATION_API Simulation {
 public:
  Simulation();
  ~Simulation();

  /// @name The simulation flag byte that the pipeline hands in
  /// @{
  bool isSimulationEnable(unsigned char flags);   ///< bit 0: simulation is on
  bool getSimulationMode(unsigned char flags);    ///< bit 1: readback (clear: dump)
  bool getSimulationAEMode(unsigned char flags);  ///< bit 2: AE simulation
  /// @}

  /// Makes sure that /data/vendor/camera/tmp exists.
  void makeTmpFileFloder();

  /// True when `path` names something that exists, a folder included.
  bool isFileExists(char* path);

  /// Writes the path prefix of the records of `type` into `outPath` (at least
  /// 128 bytes; the prefix is cut at 127 characters). Mode 0 also creates the
  /// request's dump folder; any other mode gives the readback prefix and creates
  /// nothing. A record's file is the prefix followed by its own tail.
  void getFilesPath(int mode, FileType type, char* outPath, unsigned int requestId,
                    unsigned int camId);

  /// Reads `size` bytes at `offset` (from the start when not positive) with one
  /// read. Returns the count read, or -1; what was read stays in `buf` even when
  /// it is less than `size`.
  ssize_t ReadFromFile(void* buf, char* path, unsigned long size, int offset);

  /// Writes `size` bytes with one write to a file opened with exactly
  /// `openFlags` (mode 0777). Returns the count written, or -1.
  ssize_t WritetoFile(void* buf, char* path, unsigned long size, int openFlags);

  /// The exposure decision of one exposure step as XML
  /// (simulation_AE_AECData_*_ev[step].xml): lux index, gains and three exposures
  /// of the auto exposure output, at the offsets of AECOutputLayout.
  /// `evIndex` points to the step, a 32-bit unsigned number.
  ///
  /// A readback replaces member after member until an element is missing; the
  /// members before it stay replaced. An attribute that is missing, or a value
  /// that is no number, leaves its member.
  void SimulationForAECData(SimulationInfo* info, void* aecOutput, unsigned int requestId,
                            unsigned int camId, void* evIndex);

  /// @name Bayer-grid statistics (`stats`: a BayerGridOutput) as XML
  /// @{

  /// Writes the statistics to `path`; the first region of each pair when they
  /// are paired. Aborts the process when there are more than 3888 regions. A null
  /// `stats` is logged.
  void dumpAWBStatsForSimulation(void* stats, char* path);

  /// Replaces the regions by those in `path` and leaves the header live. The
  /// file tells their number (at most 3888 are replayed) and whether they are
  /// paired: then each pair gets a region and the one that follows it. A file
  /// that lacks anything changes nothing; a list that is too short or broken is
  /// filled up with zeros.
  void readAWBStatsForSimulation(void* stats, char* path);
  /// @}

  /// What white balance gets to know of the exposure (`data`: an AWBExposureInfo)
  /// as XML (simulation_AWB_AECData_*.xml). A readback leaves what is missing or
  /// no number, and replaces the first byte of AECSettled only.
  void SimulationForAWBAECData(SimulationInfo* info, void* data, unsigned int requestId,
                               unsigned int camId);

  /// The parsed Bayer-grid statistics. `text` is part of the file name and tells
  /// apart the statistics of one request.
  void SimulationForAWBParsedStatsOutput(SimulationInfo* info, void* stats, unsigned int requestId,
                                         unsigned int camId, const char* text);

  /// @name White-balance inputs, byte for byte (simulation_AWB_*.bin)
  /// A readback of a file that is missing or too short leaves the record as it is,
  /// unless the operation says otherwise.
  /// @{

  /// 1784 bytes. The first eight are never taken from the file.
  void SimulationForAWBFaceROI(SimulationInfo* info, void* data, unsigned int requestId,
                               unsigned int camId);

  /// 144 bytes. `text` is part of the file name and tells apart the
  /// configurations of one request.
  void SimulationForAWBISPStatsConfig(SimulationInfo* info, void* data, unsigned int requestId,
                                      unsigned int camId, const char* text);

  /// 60 bytes. Replayed only when the sensor mode index (16 bits at byte 16) and
  /// the 32-bit word at byte 24 equal the live ones. A missing file counts as
  /// all zeros, a short one is filled up with zeros.
  void SimulationForAWBTuningMode(SimulationInfo* info, void* data, unsigned int requestId,
                                  unsigned int camId);

  /// `count` floats. A negative count aborts the process in modes 0 and 1.
  void SimulationForAWBExtensionInfo(SimulationInfo* info, float* data, int count,
                                     unsigned int requestId, unsigned int camId);

  /// 888 bytes.
  void SimulationForAWBFrameControlData(SimulationInfo* info, void* data, unsigned int requestId,
                                        unsigned int camId);

  /// `size` bytes, read straight into `data`: a short file replaces its beginning.
  void SimulationForAWBinputColorData(SimulationInfo* info, void* data, unsigned long size,
                                      unsigned int requestId, unsigned int camId);

  /// `size` bytes, read straight into `data`: a short file replaces its beginning.
  void SimulationForCVPTransformData(SimulationInfo* info, void* data, unsigned long size,
                                     unsigned int requestId, unsigned int camId);
  /// @}

  /// Six floats as XML (simulation_AWB_ExtExposure_*.xml): safe, long and short
  /// sensitivity, frame luma, ADRC gain, brightness value. Requests 0 to 9 are
  /// neither dumped nor replayed. A value that is missing or no number stays live.
  void SimulationForAWBExtExposure(SimulationInfo* info, void* data, unsigned int requestId,
                                   unsigned int camId);

  /// Writes the path prefix of the records of a named image into `out` (at least
  /// 128 bytes; the prefix is cut at 127 characters): in mode 0 below the folder
  /// `folderName`, which is created like the tmp root, else straight under
  /// /data/vendor/camera. The ids are not used.
  void getOfflineAWBFilesPath(int mode, FileType type, char* out, unsigned int requestId,
                              unsigned int camId, char* folderName);

  /// The statistics (a BayerGridOutput, as XML) and their configuration (144
  /// bytes) for white balance computed again after the capture. They are dumped
  /// into the folder that SimulationInfo::folderName names, and each only when
  /// its file isn't there yet. The two don't depend on each other's success.
  void SimulationForOfflineAWBBGStats(SimulationInfo* info, void* stats, void* config,
                                      unsigned int requestId, unsigned int camId);

  /// @name Scene segmentation and extended white balance
  /// The XML records among them (QSeg, the four with a few numbers, spectral) are
  /// applied value by value: a missing element leaves its member. But for the
  /// list of channels, an element without text or with a text that is no number,
  /// or out of range, throws what std::stoi, std::stoll or std::stof throws
  /// (std::invalid_argument, std::out_of_range); what was applied before stays.
  /// @{

  /// A QSegImageInfo (simulation_AWB_QsegImageData_*.xml). More labels than the
  /// map holds, or a value of an eleventh instance or a fourth part, abort. A
  /// label map without text is left alone.
  void SimulationForQsegImageData(SimulationInfo* info, void* pQSegImageInfo,
                                  unsigned int requestId, unsigned int camId);
  /// The dump and the readback by themselves, at a path of the caller's choice.
  /// A null record is logged by a dump; a readback must have one.
  void dumpQsegImageData(void* pQSegImageInfo, char* fileName);
  void readQsegImageData(void* pQSegImageInfo, char* fileName);

  /// 964 bytes (simulation_ZOAWB_FaceDectionInfo_*.bin), whole or not at all.
  void SimulationForZOAWBFaceDectionInfo(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId);

  /// 204 bytes (simulation_ZOAWB_FaceColorDectionInfo_*.bin), whole or not at all.
  void SimulationForZOAWBFaceColorDectionInfo(SimulationInfo* info, void* data,
                                              unsigned int requestId, unsigned int camId);

  /// A ZOAWBWideAlwaysOnStatus.
  void SimulationForZOAWBWideAlwaysOnStatus(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId);

  /// A ZOAWBSyncInfo.
  void SimulationForZOAWBSyncInfo(SimulationInfo* info, void* data, unsigned int requestId,
                                  unsigned int camId);

  /// A ZOAWBPureColorRes.
  void SimulationForZOAWBPureColorRes(SimulationInfo* info, void* data, unsigned int requestId,
                                      unsigned int camId);

  /// A ZOAWBLightSrcClassify.
  void SimulationForZOAWBLightSrcClassify(SimulationInfo* info, void* data, unsigned int requestId,
                                          unsigned int camId);

  /// A WBOTPCalibrationHead and its entries (simulation_AWB_OTPData_*.xml): the
  /// first entry's pair is dumped and replayed into every entry. A value that is
  /// no number stays live. The table must hold at most 255 entries: a readback
  /// into more never ends.
  void SimulationForOTPCalibrationFactor(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId);

  /// A SpectralSensorInfo (simulation_ZOAWB_SpectralSensorInfo.xml, the same file
  /// for every camera). More than 20 channel values abort.
  void SimulationForZoAWBSpectralSensorInfo(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId);
  /// @}

  /// @name Face detection, byte for byte (simulation_FACE_*.bin)
  /// The first dump of a request stays: a file that exists is not written again.
  /// @{

  /// Six blocks, one after another in one file that holds no sizes: read it back
  /// with the sizes it was dumped with. A block that is missing or cut short in
  /// the file keeps its live data from there on, the others are read all the
  /// same. Aborts when the sizes before a block to be read exceed a size_t;
  /// blocks that begin beyond 2 GiB are not read right.
  void SimulationForFDResult(SimulationInfo* info, void* block1, unsigned long size1, void* block2,
                             unsigned long size2, void* block3, unsigned long size3, void* block4,
                             unsigned long size4, void* block5, unsigned long size5, void* block6,
                             unsigned long size6, unsigned int requestId, unsigned int camId);

  /// The face regions of interest, kFdRoiSize bytes. The first eight are never
  /// taken from the file; a file that is missing or too short leaves the record.
  void SimulationForFDROIData(SimulationInfo* info, void* roiData, unsigned int requestId,
                              unsigned int camId);
  /// @}

  /// @name Lens shading (simulation_LSC[...]_index[...]_ev[...].xml)
  /// @{

  /// Dumps the LscTable at `lscTable` into the folder that
  /// SimulationInfo::folderName names, or writes the gains of a file straight
  /// under /data/vendor/camera into `outTable` (kLscRows x kLscColumns x
  /// kLscChannels floats). The index in the file name counts the calls, in
  /// whatever mode, with the same folder name, `name` and `ev`, from 0. The fourth
  /// argument is not used.
  ///
  /// False when `lscTable` is null (in either mode; such a call is not counted),
  /// the mode is neither, or the file can't be loaded or holds no table; true
  /// otherwise, also after a dump that failed. A file is trusted: more values
  /// than the table has are written past its end, and a text that is no number
  /// leaves as the exception of std::stof, with the channels before it replaced.
  bool simulationForLscMeta(SimulationInfo* info, const void* lscTable, float* outTable,
                            int reserved, const char* name, int ev);

  /// The last index of each folder name, `name` and `ev`, joined; guarded by
  /// m_Mutex, as nothing else is.
  static std::map<std::string, unsigned short> m_LscIndex;
  static std::mutex m_Mutex;
  /// @}

  /// @name ACB (simulation_ACB_*)
  /// Dumps go to the folder that SimulationInfo::folderName names and rewrite the
  /// file that is there.
  /// @{

  /// Writes the path prefix of the records of `type` into `outPath` (at least 128
  /// bytes; cut at 127 characters). Mode 0 also creates /data/vendor/camera/tmp
  /// and the folder `folderName`; any other mode gives the readback prefix and
  /// creates nothing. The ids are not used.
  void getACBAWBFilesPath(int mode, FileType type, char* outPath, unsigned int requestId,
                          unsigned int camId, char* folderName);

  /// Both planes of an AcbImage in one file, Y before C. A file that is too short
  /// leaves what it lacks live and is no error. A record or plane that is null is
  /// neither dumped nor replayed.
  void SimulationForACB(SimulationInfo* info, void* imageRecord, unsigned int requestId,
                        unsigned int camId);

  /// The orientation in an AcbDeviceOrientation, as XML. A value that is missing
  /// or no integer stays live.
  void SimulationForACBdeviceOri(SimulationInfo* info, void* orientationRecord,
                                 unsigned int requestId, unsigned int camId);
  /// @}
};

/// Owner of the one Simulation object of the process.
class SIMULATION_API SimulationMgr {
 public:
  /// The process-wide object, made on first use. Never null; do not delete it.
  static Simulation* getInstance();
};
