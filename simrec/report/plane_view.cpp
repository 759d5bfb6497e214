#include <fmt/format.h>

#include "simrec/report/plane.h"
#include "simrec/report/views.h"

namespace simrec::report {

Json planeView(const Record& record, const ViewOptions& options, Ids& ids) {
  Json view = newView(record.file, record.problems);
  if (record.bytes.empty()) return view;
  const Plane plane = planeOf(record.bytes, options.planeWidth);
  if (plane.width == 0) {
    view["viewFacts"] = "No width fits the file's size: --plane-width gives one.";
    return view;
  }
  const char* const how = options.planeWidth != 0 ? "as was given" : "guessed from the file's size";
  view["viewFacts"] =
      fmt::format("Y plane of {} x {} pixels (the width is {}); each place shows {} x {} of them.",
                  plane.width, plane.height, how, plane.step, plane.step);
  Numbers numbers(ids);
  numbers.add("Y", tokensOf(plane.means.values));
  Map map = {"Y plane", "", "the luma of the image in greys", "Y", &greyPalette()};
  map.range = Range{0, 255};
  view["figures"].push_back(figure(map, plane.means, numbers));
  view["dataSets"].push_back(numbers.json());
  return view;
}

}  // namespace simrec::report
