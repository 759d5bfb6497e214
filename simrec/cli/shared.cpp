#include <cstdlib>

#include "simrec/cli/command.h"

namespace simrec::cli {

std::string Shared::dataFolder() const {
  if (!data.empty()) return data;
  const char* const variable = std::getenv("SIMREC_DATA");
  return variable != nullptr && *variable != '\0' ? variable : "/data/vendor/camera";
}

void SelectionOptions::addCamera(CLI::App& command) {
  command.add_option("--camera", camera, "only records of this camera and those that have none")
      ->type_name("N");
}

void SelectionOptions::addKinds(CLI::App& command) {
  command.add_option("KIND", kinds,
                     "only these kinds of record (AE_AECData, QsegImageData, ZOAWB_*)");
}

void explain(CLI::App& command, const char* statuses, const char* examples) {
  std::string text = "Options of every command: --data DIR, --quiet (see simrec help).\n\n";
  text += std::string("Exit status: ") + statuses + "; 2 it could not be done.\n\nExamples:\n";
  for (const std::string& line : CLI::detail::split(examples, '\n')) text += "  " + line + '\n';
  text.pop_back();
  command.footer(text);
}

}  // namespace simrec::cli
