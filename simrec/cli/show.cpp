// simrec show: each record of a capture with its values.
#include <cmath>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/provenance.h"
#include "simrec/record.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::string capture;
  SelectionOptions selection;
  bool lists = false, json = false;
};

void putJson(const Record& record, bool lists, JsonDocument& document) {
  Json head;
  head["record"] = record.file.parts->kind->name;
  setParts(head, *record.file.parts);
  setName(head, "file", "fileBytes", record.file.name);
  head["bytes"] = record.file.bytes;
  head["modified"] = record.file.hasTime() ? Json(utcTime(record.file.modified)) : Json();
  std::string text = dump(head);
  text.pop_back();
  document.add(text + ",\"values\":");
  writeValues(put, record, lists);
  put(",\"problems\":" + dump(record.problems) + "}");
}

void putLine(const std::string& name, const std::string& value, const std::string& remark) {
  if (remark.empty()) {
    print("  {:<34} {}\n", name, value);
  } else {
    print("  {:<34} {:<16}  {}\n", name, value, colored(Color::kFaint, remark));
  }
}

/// Numbers of a list, as many in a line as fit.
void putNumbers(std::string_view numbers) {
  constexpr std::size_t kWidth = 92;
  std::string line;
  for (std::size_t at = 0; at < numbers.size();) {
    const std::size_t end = std::min(numbers.find(',', at), numbers.size());
    const std::string_view number = numbers.substr(at, end - at);
    if (line.size() + number.size() + 1 > kWidth) {
      print("    {}\n", line);
      line.clear();
    }
    line += line.empty() ? "" : " ";
    line += number;
    at = end + 1;
  }
  if (!line.empty()) print("    {}\n", line);
}

void putList(const std::string& path, const Value& value, bool whole) {
  const NumberList& list = *value.list();
  const std::string note = remarkOn(*value.member, nullptr);
  if (!whole && list.size() > kShortList) {
    const Summary summary = summaryOf(list);
    putLine(path, counted(list.size(), "number"),
            fmt::format("min {}  mean {:.6g}  max {}{}{}", textOf(summary.min), summary.mean,
                        textOf(summary.max), note.empty() ? "" : "  ", note));
    return;
  }
  std::string numbers;
  appendNumbers(numbers, list);
  putLine(path, counted(list.size(), "number"), note);
  putNumbers(std::string_view(numbers).substr(1, numbers.size() - 2));
}

void putValues(const Values& values, const std::string& prefix, bool lists) {
  for (const Value& value : values) {
    const std::string path = prefix + value.member->name;
    if (const Number* const number = value.number()) {
      putLine(path, textOf(*number), remarkOn(*value.member, number));
    } else if (value.list() != nullptr) {
      putList(path, value, lists);
    } else if (const Values* const members = value.members()) {
      putValues(*members, path + ".", lists);
    } else {
      for (std::size_t i = 0; i < value.items()->size(); ++i) {
        putValues((*value.items())[i], fmt::format("{}[{}].", path, i), lists);
      }
    }
  }
}

void putHexDump(std::string_view bytes) {
  constexpr std::size_t kRow = 16;
  for (std::size_t at = 0; at < bytes.size(); at += kRow) {
    const std::string_view row = bytes.substr(at, kRow);
    std::string digits, characters;
    for (const char byte : row) {
      digits += hex({&byte, 1}) + ' ';
      characters += byte >= ' ' && byte <= '~' ? byte : '.';
    }
    print("    {:08x}  {:<48} {}\n", at, digits, characters);
  }
}

void putRecord(const Record& record, bool lists) {
  const auto& kind = *record.file.parts->kind;
  print("{}  {}\n", colored(Color::kBold, printable(record.file.name)),
        colored(Color::kFaint,
                fmt::format("{}, {}, {}", kind.content, sizeText(record.file.bytes),
                            record.file.hasTime() ? localTime(record.file.modified) : "-")));
  for (const std::string& problem : record.problems) {
    print("  {} {}\n", colored(Color::kRed, "problem:"), problem);
  }
  if (kind.format == catalogue::Format::kBinary) {
    putLine("size", std::to_string(record.file.bytes), "bytes");
  }
  putValues(record.values, "", lists);
  if (lists) putHexDump(record.bytes);
  put("\n");
}

Status show(const Options& options) {
  const Selection selection = options.selection.selection();
  const Capture capture = options.shared.store().find(options.capture);
  const std::vector<File> files = selection.of(filesOf(capture));
  const auto provenance = readProvenance(capture);
  Json head;
  setName(head, "capture", "captureBytes", capture.name);
  if (provenance) head["from"] = toJson(*provenance);
  std::optional<JsonDocument> document;
  if (options.json) document.emplace(head, "records");
  if (!options.json && provenance) print("{}\n\n", sentenceFor(*provenance));
  Progress progress("Reading", files.size(), options.shared.quiet);
  for (const File& file : files) {
    Reading reading;
    reading.binary = options.lists;
    const Record record = readRecord(capture.path, file, reading);
    if (document) {
      putJson(record, options.lists, *document);
    } else {
      putRecord(record, options.lists);
    }
    progress.step();
  }
  if (document) document->end();
  return kDone;
}

}  // namespace

void addShow(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}});
  CLI::App& command = addCommand(app, "show", "show the records of a capture with their values",
                                 run, options, show);
  command.add_option("CAPTURE", options->capture, "an image, REQUEST/CAMERA, staged, or a path")
      ->required();
  options->selection.addKinds(command);
  options->selection.addCamera(command);
  command.add_flag("--lists", options->lists, "whole lists, and binary records in hex");
  command.add_flag("--json", options->json, "as JSON");
  explain(command, "0 whatever there is to show",
          "simrec show IMG_000072 AE_AECData --camera 0\n"
          "simrec show 57/0 QsegImageData 'ZOAWB_*' --json --lists");
}

}  // namespace simrec::cli
