#include <fmt/format.h>

#include <map>

#include "simrec/report/views.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

using catalogue::Kind;

/// Values of one kind by their members' names, each with a cell for each record.
class KindTable {
 public:
  explicit KindTable(const Kind& kind) : kind_(kind), head_({"Member"}) {}

  void add(const Record& record) {
    head_.push_back(titleOf(*record.file.parts));
    ++columns_;
    addValues(record.values, "");
    for (auto& [name, member] : rows_) member.cells.resize(columns_);
  }

  Json json() const {
    std::vector<std::string> head = head_;
    head.emplace_back("Meaning");
    Json rows = Json::array();
    for (const std::string& name : order_) rows.push_back(jsonOf(name, rows_.at(name)));
    return table(fmt::format("{}: {}", kind_.name, kind_.content), head, std::move(rows));
  }

 private:
  struct Line {
    std::vector<std::string> cells;
    std::string remark;
  };

  Json jsonOf(const std::string& name, const Line& line) const {
    std::vector<Json> cells;
    for (const std::string& text : line.cells) {
      cells.push_back(text.empty() ? cell("missing", true) : cell(text));
    }
    cells.push_back(cell(line.remark));
    return row(name, std::move(cells));
  }

  void put(const std::string& name, const std::string& text, const std::string& remark) {
    const auto [place, isNew] = rows_.try_emplace(name);
    if (isNew) order_.push_back(name);
    Line& line = place->second;
    line.cells.resize(columns_);
    line.cells.back() = text;
    line.remark = remark;
  }

  void addValues(const Values& values, const std::string& prefix) {
    for (const Value& value : values) {
      const std::string name = prefix + value.member->name;
      if (const Number* const number = value.number()) {
        put(name, textOf(*number), remarkOn(*value.member, number));
      } else if (const NumberList* const list = value.list()) {
        put(name, listText(*list), remarkOn(*value.member, nullptr));
      } else if (const Values* const members = value.members()) {
        addValues(*members, name + ".");
      }
    }
  }

  static std::string listText(const NumberList& list) {
    if (list.size() > kShortList) {
      const Summary summary = summaryOf(list);
      return fmt::format("{} numbers from {} to {}, mean {:.4g}", list.size(), textOf(summary.min),
                         textOf(summary.max), summary.mean);
    }
    std::string text;
    appendNumbers(text, list);
    return text;
  }

  const Kind& kind_;
  std::vector<std::string> head_, order_;
  std::map<std::string, Line> rows_;
  std::size_t columns_ = 0;
};

}  // namespace

Json valueTable(const Capture& capture, const Kind& kind, const std::vector<File>& files) {
  KindTable table(kind);
  bool any = false;
  for (const File& file : files) {
    if (file.parts->kind != &kind) continue;
    const Record record = readRecord(capture.path, file, {true, false});
    if (record.values.empty()) continue;
    table.add(record);
    any = true;
  }
  return any ? table.json() : Json();
}

}  // namespace simrec::report
