// simrec report: captures as a page of pictures.
#include "simrec/report/report.h"

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/new_file.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::vector<std::string> captures, compared;
  std::string output = "report.html";
  bool all = false;
  std::size_t planeWidth = 0;
};

Status report(const Options& options) {
  if (options.output == "-") throw Error("-o -: a page is written to a file alone");
  const Store store = options.shared.store();
  report::Request request = {store, {}};
  for (const std::string& name : options.captures) request.captures.push_back(store.find(name));
  if (!options.compared.empty()) {
    request.compared = {store.find(options.compared[0]), store.find(options.compared[1])};
  }
  request.allPictures = options.all;
  request.view.planeWidth = options.planeWidth;
  if (options.captures.empty() && options.compared.empty()) store.captures();  // or throws why not
  NewFile file(options.output);
  Progress progress("Looking", 0, options.shared.quiet);
  const std::size_t count = report::writeReport(
      request, [&](const std::string& piece) { file.write(piece); }, [&] { progress.step(); });
  file.finish();
  print("{}: {}, {}\n", printable(options.output), counted(count, "capture"),
        sizeText(file.bytes()));
  return kDone;
}

}  // namespace

void addReport(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}});
  CLI::App& command = addCommand(
      app, "report", "show captures as a page of pictures, in one file that any browser opens", run,
      options, report);
  command.add_option("CAPTURE", options->captures,
                     "captures to show with their pictures; without any an overview of all");
  command.add_option("--compare", options->compared, "set two captures side by side")
      ->type_name("A B")
      ->expected(2);
  command.add_flag("--all", options->all,
                   "pictures of all captures, not of the newest images alone");
  command.add_option("-o,--output", options->output, "the page; report.html when it is not given")
      ->type_name("FILE.html");
  command
      .add_option("--plane-width", options->planeWidth,
                  "pixels in a row of ACB's Y plane; guessed from its size when not given")
      ->type_name("N")
      ->check(CLI::Range(1, 65536));
  explain(command, "0 the page was written, whatever it shows",
          "simrec report\n"
          "simrec report IMG_000072 -o IMG_000072.html\n"
          "simrec report --compare IMG_000072 IMG_000096 -o both.html");
}

}  // namespace simrec::cli
