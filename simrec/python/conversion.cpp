#include "simrec/python/conversion.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include "simrec/number.h"

namespace simrec::python {
namespace {

namespace py = pybind11;

using Shape = std::vector<py::ssize_t>;

/// The members of a record that tell the shape of its lists.
constexpr const char* kShapes[][2] = {{"vertical_num", "horizontal_num"},
                                      {"height", "width"},
                                      {"verticalRegionCount", "horizontalRegionCount"}};

std::uint64_t integerOf(const Values& values, const char* name) {
  const Value* const value = find(values, name);
  return value != nullptr && value->number() != nullptr ? value->number()->integer : 0;
}

/// Rows and columns that lists of the record may have.
class Shapes {
 public:
  explicit Shapes(const Values& record) {
    for (const auto& [rows, columns] : kShapes) {
      shapes_[count_] = {integerOf(record, rows), integerOf(record, columns)};
      if (shapes_[count_].columns != 0) ++count_;
    }
  }

  /// Rows and columns where the record tells them and they fit; else one row of numbers.
  Shape of(const Value& value) const {
    const std::size_t size = value.list()->size();
    if (value.member->carrier == catalogue::Carrier::kElement && size != 0) {
      for (std::size_t i = 0; i < count_; ++i) {
        const auto& [rows, columns] = shapes_[i];
        if (size % columns != 0 || size / columns != rows) continue;
        return {static_cast<py::ssize_t>(rows), static_cast<py::ssize_t>(columns)};
      }
    }
    return {static_cast<py::ssize_t>(size)};
  }

 private:
  struct Grid {
    std::uint64_t rows, columns;
  };
  Grid shapes_[std::size(kShapes)];
  std::size_t count_ = 0;
};

/// With a copy of the items.
template <typename Item>
py::array arrayOf(const std::vector<Item>& items, const Shape& shape) {
  py::array_t<Item> array(shape);
  if (!items.empty()) std::memcpy(array.mutable_data(), items.data(), items.size() * sizeof(Item));
  return std::move(array);
}

py::array arrayOf(const NumberList& list, const Shape& shape) {
  return std::visit(
      [&](const auto& items) -> py::array {
        using Item = typename std::decay_t<decltype(items)>::value_type;
        if constexpr (std::is_same_v<Item, float>) {
          return arrayOf(decimalsOf(list), shape);
        } else {
          return arrayOf(items, shape);
        }
      },
      list.values);
}

py::object toPython(const Number& number) {
  if (number.isFloat()) return py::float_(number.decimal);
  if (number.isSigned()) return py::int_(static_cast<std::int64_t>(number.integer));
  return py::int_(number.integer);
}

py::object groupOf(const Values& values) {
  py::dict members;
  addMembers(values, members);
  return py::module_::import("types").attr("SimpleNamespace")(**members);
}

py::object toPython(const Value& value, const Shapes& shapes) {
  if (const Number* const number = value.number()) return toPython(*number);
  if (const NumberList* const list = value.list()) return arrayOf(*list, shapes.of(value));
  if (const Values* const members = value.members()) return groupOf(*members);
  const std::vector<Values>& items = *value.items();
  py::tuple groups(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) groups[i] = groupOf(items[i]);
  return std::move(groups);
}

py::array textsOf(const ColumnCells& cells) {
  py::list texts(cells.texts.size());
  py::str last;
  const std::string* lastText = nullptr;
  for (std::size_t i = 0; i < cells.texts.size(); ++i) {
    if (cells.missing[i] != 0) {
      texts[i] = py::none();
      continue;
    }
    if (lastText == nullptr || *lastText != cells.texts[i]) last = nameFromDisk(cells.texts[i]);
    lastText = &cells.texts[i];
    texts[i] = last;
  }
  py::array array(py::dtype("O"), Shape{static_cast<py::ssize_t>(cells.texts.size())});
  array[py::slice(py::none(), py::none(), py::none())] = texts;
  return array;
}

/// What stands for a missing number: of a double nan, of a time NaT.
std::uint64_t fillerOf(ColumnType type) {
  std::uint64_t bits = 0;
  if (type == ColumnType::kDouble) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    std::memcpy(&bits, &nan, sizeof bits);
  }
  return type == ColumnType::kTime ? std::uint64_t{1} << 63 : bits;
}

py::object numbersOf(ColumnCells& cells, ColumnType type) {
  const bool whole = std::all_of(cells.missing.begin(), cells.missing.end(),
                                 [](char missing) { return missing == 0; });
  for (std::size_t i = 0; !whole && i < cells.numbers.size(); ++i) {
    if (cells.missing[i] != 0) cells.numbers[i] = fillerOf(type);
  }
  constexpr const char* kTypes[] = {"int64", "uint64", "float64", "", "datetime64[ns]"};
  const Shape shape = {static_cast<py::ssize_t>(cells.numbers.size())};
  py::array array(py::dtype(kTypes[static_cast<std::size_t>(type)]), shape, cells.numbers.data());
  const bool integer = type == ColumnType::kInt64 || type == ColumnType::kUint64;
  if (whole || !integer) return std::move(array);
  const py::array mask(py::dtype("bool"), shape, cells.missing.data());
  return py::module_::import("numpy.ma").attr("MaskedArray")(array, py::arg("mask") = mask);
}

}  // namespace

py::str nameFromDisk(const std::string& name) {
  PyObject* const text =
      PyUnicode_DecodeFSDefaultAndSize(name.data(), static_cast<Py_ssize_t>(name.size()));
  if (text == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(text);
}

void addMembers(const Values& values, py::dict& members) {
  const Shapes shapes(values);
  for (const Value& value : values) members[value.member->name] = toPython(value, shapes);
}

py::dict toPython(Columns columns) {
  py::dict dictionary;
  for (std::size_t i = 0; i < columns.cells.size(); ++i) {
    const Column& column = columns.table->columns[i];
    ColumnCells& cells = columns.cells[i];
    dictionary[column.name.c_str()] = column.type == ColumnType::kText
                                          ? py::object(textsOf(cells))
                                          : numbersOf(cells, column.type);
    cells = {};
  }
  return dictionary;
}

}  // namespace simrec::python
