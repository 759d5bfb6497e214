// simrec export: the records of many captures as tables for other programs.
#include "simrec/export/export.h"

#include "simrec/cli/command.h"
#include "simrec/cli/interruption.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::vector<std::string> captures;
  ExportWishes wishes = {};
};

template <typename Captures>
ExportCounts exportWithBar(Captures captures, const Options& options) {
  Progress progress("Exporting", captures.size(), options.shared.quiet);
  const Interruption interruption;
  const auto check = [&] { interruption.check(); };
  const auto step = [&] {
    check();
    progress.step();
  };
  return exportTables(std::move(captures), options.wishes, step, check);
}

ExportCounts exportChosen(const Options& options) {
  if (options.wishes.out == "-") throw Error("-o -: tables are written to files alone");
  const Store store = options.shared.store();
  if (options.captures.empty()) return exportWithBar(CaptureList(store.data()), options);
  std::vector<Capture> captures;
  for (const std::string& name : options.captures) captures.push_back(store.find(name));
  return exportWithBar(std::move(captures), options);
}

/// What is half done is taken away before the process ends.
ExportCounts exportOrEnd(const Options& options) {
  try {
    return exportChosen(options);
  } catch (const Interrupted& interrupted) {
    interrupted.endProcess();
  }
}

Status exportTables(const Options& options) {
  const ExportCounts counts = exportOrEnd(options);
  for (const std::string& trouble : counts.troubles) {
    fmt::print(stderr, "simrec: {}\n", printable(trouble));
  }
  if (counts.moreTroubles > 0) {
    fmt::print(stderr, "simrec: and {} more that can't be read\n",
               counted(counts.moreTroubles, "folder"));
  }
  print("{} of {}, {} with a problem: {}\n", counted(counts.rows, "record"),
        counted(counts.captures, "capture"), counts.problems, printable(options.wishes.out));
  return kDone;
}

}  // namespace

void addExport(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}});
  CLI::App& command =
      addCommand(app, "export", "write tables for analysis", run, options, exportTables);
  command.add_option("CAPTURE", options->captures,
                     "images, REQUEST/CAMERA, staged, or paths; all when none is named");
  ExportWishes& wishes = options->wishes;
  const std::map<std::string, ExportFormat> formats = {{"jsonl", ExportFormat::kJsonLines},
                                                       {"csv", ExportFormat::kCsv},
                                                       {"sqlite", ExportFormat::kSqlite}};
  command
      .add_option_function<std::string>(
          "--format",
          [&wishes, formats](const std::string& word) { wishes.format = formats.at(word); },
          "folders of JSON lines or of CSV, or one SQLite database")
      ->check([formats](const std::string& word) {
        return formats.count(word) != 0 ? "" : "'" + word + "' is none of jsonl, csv and sqlite";
      })
      ->required()
      ->type_name("jsonl|csv|sqlite");
  command.add_option("-o", wishes.out, "the folder or the database; an older export is replaced")
      ->required()
      ->type_name("OUT");
  command.add_flag("--lists", wishes.lists, "lists are columns, too");
  command.add_flag("--append", wishes.append, "add what is new since the last export to OUT");
  explain(command, "0 whatever there was to export",
          "simrec export --format sqlite -o captures.db\n"
          "simrec export IMG_000072 57/0 --format jsonl -o tables --lists");
}

}  // namespace simrec::cli
