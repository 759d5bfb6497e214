#include "catalogue/member.h"

namespace catalogue {

std::size_t sizeOf(Type type) {
  switch (type) {
    case Type::kUint8:
      return 1;
    case Type::kUint16:
      return 2;
    case Type::kUint64:
      return 8;
    case Type::kInt32:
    case Type::kUint32:
    case Type::kFloat:
      break;
  }
  return 4;
}

}  // namespace catalogue
