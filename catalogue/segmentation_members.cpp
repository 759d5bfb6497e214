// The scene segmentation: the label map, its instances and their parts.
#include <simulation/records.h>

#include "catalogue/members.h"

namespace catalogue {
namespace {

constexpr Member kRectangle[] = {
    number("left", Type::kUint32, offsetof(QSegRect, left)).in(kPipelineUnit),
    number("top", Type::kUint32, offsetof(QSegRect, top)).in(kPipelineUnit),
    number("width", Type::kUint32, offsetof(QSegRect, width)).in(kPipelineUnit),
    number("height", Type::kUint32, offsetof(QSegRect, height)).in(kPipelineUnit),
};

constexpr Member kInstance[] = {
    number("requestId", Type::kUint64, offsetof(QSegInstInfo, requestId)),
    number("ID", Type::kInt32, offsetof(QSegInstInfo, ID)),
    number("nConf", Type::kUint32, offsetof(QSegInstInfo, nConf)).is("confidence"),
    number("nSegIdx", Type::kUint16, offsetof(QSegInstInfo, nSegIdx)).is("segment index"),
    number("eTrackStatus", Type::kUint16, offsetof(QSegInstInfo, eTrackStatus))
        .is("the pipeline's enumeration"),
    number("eObjectType", Type::kUint16, offsetof(QSegInstInfo, eObjectType))
        .is("the pipeline's enumeration"),
    group("roi", offsetof(QSegInstInfo, roi), kRectangle),
    array("partROIs", "partROI", offsetof(QSegInstInfo, partROIs), 3, sizeof(QSegRect), kRectangle),
};

constexpr Meaning kValid[] = {{0, "the segmentation is not valid"}, {1, "valid"}};

constexpr Member kSegmentation[] = {
    number("requestId", Type::kUint64, offsetof(QSegImageInfo, requestId)),
    number("isQSegInfoValid", Type::kInt32, offsetof(QSegImageInfo, isQSegInfoValid)).means(kValid),
    number("horizontalRegionCount", Type::kUint32, offsetof(QSegImageInfo, horizontalRegionCount))
        .in("regions"),
    number("verticalRegionCount", Type::kUint32, offsetof(QSegImageInfo, verticalRegionCount))
        .in("regions"),
    number("qsegInstCount", Type::kUint16, offsetof(QSegImageInfo, qsegInstCount))
        .in("instances")
        .is("valid ones"),
    number("qsegSceneClass", Type::kUint16, offsetof(QSegImageInfo, qsegSceneClass))
        .is("the pipeline's enumeration"),
    number("qsegSceneClassConf", Type::kFloat, offsetof(QSegImageInfo, qsegSceneClassConf))
        .is("confidence of the class"),
    list("qsegStatsInfo", Type::kUint8, offsetof(QSegImageInfo, qsegStatsInfo),
         QSegImageInfo::kStatsSize, 1)
        .is("labels"),
    array("qsegInstInfos", "qsegInstInfo", offsetof(QSegImageInfo, qsegInstInfos),
          QSegImageInfo::kInstances, sizeof(QSegInstInfo), kInstance),
    group("qsegCroppedWindowInfo", offsetof(QSegImageInfo, qsegCroppedWindowInfo), kRectangle),
};

}  // namespace

const Members kSegmentationMembers = kSegmentation;

}  // namespace catalogue
