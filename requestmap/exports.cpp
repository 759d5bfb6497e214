// The exported functions: the one request map of the process.
#include <simulation/request_map.h>

#include "requestmap/request_map.h"

namespace {

RequestMap& requestMap() {
  static SimulationRequestMap map;
  return map;
}

}  // namespace

void insertForChi(std::uint64_t fwkID, std::uint64_t chiID) {
  RequestData request;
  request.fwkID = fwkID;
  request.chiID = chiID;
  requestMap().enqueue(request);
}

void insertForCamx(std::uint64_t chiID, std::uint64_t camxID, std::uint32_t camId) {
  requestMap().insertForCamx(chiID, camxID, camId);
}

void addForImageName(std::vector<unsigned int>* frameNumbers, const char* imageName) {
  requestMap().addForImageName(*frameNumbers, imageName);
}

int dequeueAll() { return requestMap().dequeueAll(); }

void setOffPreReqStart(std::uint64_t offset) { requestMap().m_OffPreReqStart = offset; }
