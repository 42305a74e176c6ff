#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "lumira/model/Date.h"
#include "lumira/model/Geometry.h"
#include "lumira/model/Identifier.h"
#include "lumira/model/MassBounds.h"
#include "lumira/model/Rotation.h"
#include "lumira/store/SqliteColumns.h"
#include "lumira/store/SqliteErrors.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {

/// How a value of several numbers stands in several columns.
template <class T>
struct Spread {};

template <>
struct Spread<Vec3> {
  static constexpr std::array kSuffixes = {"_x", "_y", "_z"};
  static std::array<double, 3> Out(const Vec3& v) { return {v.x, v.y, v.z}; }
  static Vec3 In(const std::array<double, 3>& n) { return {n[0], n[1], n[2]}; }
};

template <>
struct Spread<InertiaTensor> {
  static constexpr std::array kSuffixes = {"_xx", "_yy", "_zz", "_xy", "_xz", "_yz"};
  static std::array<double, 6> Out(const InertiaTensor& i) { return {i.xx, i.yy, i.zz, i.xy, i.xz, i.yz}; }
  static InertiaTensor In(const std::array<double, 6>& n) { return {n[0], n[1], n[2], n[3], n[4], n[5]}; }
};

template <>
struct Spread<Rotation> {
  static constexpr std::array kSuffixes = {"_11", "_12", "_13", "_21", "_22", "_23", "_31", "_32", "_33"};
  static const std::array<double, 9>& Out(const Rotation& r) { return r.m; }
  static Rotation In(const std::array<double, 9>& n) { return {n}; }
};

template <>
struct Spread<MassBounds> {
  static constexpr std::array kSuffixes = {"_lower", "_upper"};
  static std::array<double, 2> Out(const MassBounds& b) { return {b.lower, b.upper}; }
  static MassBounds In(const std::array<double, 2>& n) { return {n[0], n[1]}; }
};

template <>
struct Spread<Geometry> {
  static constexpr std::array kSuffixes = {
      "volume",          "centroid_x",      "centroid_y",      "centroid_z",      "unit_inertia_xx",
      "unit_inertia_yy", "unit_inertia_zz", "unit_inertia_xy", "unit_inertia_xz", "unit_inertia_yz"};
  using Numbers = std::array<std::optional<double>, 10>;  // none: NULL
  static constexpr std::array kParts = {0, 1, 4, 10};     // where volume, centroid and inertia begin; the end

  static Numbers Out(const Geometry& g) {
    Numbers numbers = {g.volume};
    if (g.centroid) std::ranges::copy(Spread<Vec3>::Out(*g.centroid), numbers.begin() + 1);
    if (g.unitInertia) std::ranges::copy(Spread<InertiaTensor>::Out(*g.unitInertia), numbers.begin() + 4);
    return numbers;
  }
  /// Takes numbers that are NULL together within each part of `kParts`, the volume being there.
  static Geometry In(const Numbers& n) {
    Geometry geometry{*n[0], {}, {}};
    if (n[1]) geometry.centroid = Vec3{*n[1], *n[2], *n[3]};
    if (n[4]) geometry.unitInertia = InertiaTensor{*n[4], *n[5], *n[6], *n[7], *n[8], *n[9]};
    return geometry;
  }
};

template <class T>
concept Spreadable = requires {
  Spread<T>::kSuffixes;
};

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {
  using Value = T;
};

/// Collects the names of the columns.
class ColumnNames {
 public:
  template <class T>
  void operator()(const std::string& name, const T&, IdentifierRule) {
    Add<T>(name);
  }

  template <class T>
  void operator()(const std::string& name, const T&, protocol::IntRange = {}) {
    if constexpr (IsOptional<T>::value)
      Add<typename IsOptional<T>::Value>(name);
    else
      Add<T>(name);
  }

  const std::vector<std::string>& Names() const { return _names; }

 private:
  template <class T>
  void Add(const std::string& name) {
    if constexpr (Spreadable<T>)
      for (const char* suffix : Spread<T>::kSuffixes) _names.push_back(name + suffix);
    else
      _names.push_back(name);
  }

  std::vector<std::string> _names;
};

/// What is wrong with a number of a column, as the end of a sentence; none when all is well.
inline std::optional<std::string> FindNumberProblem(double number) {
  if (std::isfinite(number)) return std::nullopt;
  return protocol::FormatNumber(number) + " is not a finite number";
}

inline std::optional<std::string> FindNumberProblem(std::int64_t number, protocol::IntRange range) {
  if (number >= range.from && number <= range.to) return std::nullopt;
  if (range.from == 0 && range.to == 1) return std::to_string(number) + " is neither 0 nor 1";
  return std::to_string(number) + " is not an integer from " + std::to_string(range.from) + " to " +
         std::to_string(range.to);
}

/// Binds the members to the parameters of a statement, from a given parameter on. Throws UnstorableValue for
/// what the reader would call damage.
class Binder {
 public:
  Binder(SQLite::Statement& statement, int first) : _statement(statement), _next(first) {}

  // The rules of a product see to identifiers before anything is bound.
  void operator()(const char* name, const std::string& identifier, IdentifierRule) {
    (*this)(name, identifier);
  }

  template <class T>
  void operator()(const char* name, const T& value, protocol::IntRange range = {}) {
    _name = name;
    if constexpr (IsOptional<T>::value)
      value ? Bind(*value, range) : Skip<typename IsOptional<T>::Value>();
    else
      Bind(value, range);
  }

 private:
  template <class T>
  void Bind(const T& value, [[maybe_unused]] protocol::IntRange range) {
    if constexpr (Spreadable<T>)
      for (const auto& number : Spread<T>::Out(value)) BindNumber(number);
    else if constexpr (std::is_same_v<T, std::string>)
      _statement.bind(_next++, value);
    else if constexpr (std::is_same_v<T, double>)
      BindNumber(value);
    else if constexpr (std::is_same_v<T, Date>)
      _statement.bind(_next++, FormatDate(value));
    else
      BindInteger(static_cast<std::int64_t>(value),
                  std::is_same_v<T, std::int64_t> ? std::nullopt : std::optional(range));
  }

  void BindNumber(double number) {
    Refuse(FindNumberProblem(number));
    _statement.bind(_next++, number);
  }
  void BindNumber(const std::optional<double>& number) { number ? BindNumber(*number) : Skip<double>(); }

  void BindInteger(std::int64_t number, std::optional<protocol::IntRange> range) {
    if (range) Refuse(FindNumberProblem(number, *range));
    _statement.bind(_next++, number);
  }

  void Refuse(const std::optional<std::string>& problem) const {
    if (problem) throw UnstorableValue("column " + std::string(_name) + ": " + *problem);
  }

  // A parameter that is not bound is NULL.
  template <class T>
  void Skip() {
    if constexpr (Spreadable<T>)
      _next += static_cast<int>(Spread<T>::kSuffixes.size());
    else
      ++_next;
  }

  SQLite::Statement& _statement;
  int _next;
  const char* _name = "";  ///< of the member that is bound
};

/// The content of a column that no row of ours has.
[[noreturn]] inline void RefuseColumn(SQLite::Statement& row, int column, const std::string& problem) {
  throw DamagedContent("row " + std::string(row.getColumnName(0)) + " = " +
                       protocol::Quoted(row.getColumn(0).getString()) + ", column " +
                       row.getColumnName(column) + ": " + problem);
}

/// A text of the current row, which is UTF-8.
inline std::string TextIn(SQLite::Statement& row, int column) {
  std::string text = row.getColumn(column).getString();
  if (protocol::FindInvalidUtf8(text)) RefuseColumn(row, column, protocol::Quoted(text) + " is not UTF-8");
  return text;
}

/// A date of the current row.
inline Date DateIn(SQLite::Statement& row, int column) {
  const std::string text = TextIn(row, column);
  const auto date = ParseStoredDate(text);
  if (!date) RefuseColumn(row, column, NoDate(protocol::Quoted(text)));
  return *date;
}

/// An identifier of the current row.
inline std::string IdentifierIn(SQLite::Statement& row, int column) {
  std::string text = TextIn(row, column);
  if (const auto problem = FindIdentifierProblem(text)) RefuseColumn(row, column, *problem);
  return text;
}

/// A number of the current row, which is there and finite.
inline double NumberIn(SQLite::Statement& row, int column) {
  if (row.isColumnNull(column)) RefuseColumn(row, column, "is NULL, a number expected");
  const double number = row.getColumn(column).getDouble();
  if (const auto problem = FindNumberProblem(number)) RefuseColumn(row, column, *problem);
  return number;
}

/// A whole number of the current row, which is within the range.
inline std::int64_t IntegerIn(SQLite::Statement& row, int column, protocol::IntRange range) {
  const std::int64_t number = row.getColumn(column).getInt64();
  if (const auto problem = FindNumberProblem(number, range)) RefuseColumn(row, column, *problem);
  return number;
}

/// Fills the members from the columns of the current row, from a given column on. Throws DamagedContent for
/// what the binder would not have bound: texts that are not UTF-8, and values of several numbers of which
/// some are NULL.
class RowReader {
 public:
  RowReader(SQLite::Statement& row, int first) : _row(row), _next(first) {}

  void operator()(const char*, std::string& identifier, IdentifierRule) {
    identifier = IdentifierIn(_row, _next++);
  }

  template <class T>
  void operator()(const char*, T& value, protocol::IntRange range = {}) {
    if constexpr (IsOptional<T>::value)
      ReadOptional(value, range);
    else
      value = Read<T>(range);
  }

 private:
  template <class T>
  void ReadOptional(std::optional<T>& value, protocol::IntRange range) {
    if (!_row.isColumnNull(_next)) {
      if constexpr (requires { Spread<T>::kParts; }) CheckParts(Spread<T>::kParts);
      value = Read<T>(range);
    } else if constexpr (Spreadable<T>) {
      const int end = _next + static_cast<int>(Spread<T>::kSuffixes.size());
      CheckTogether(_next, end);
      _next = end;
    } else {
      ++_next;
    }
  }

  // Columns that are NULL together or not at all.
  void CheckTogether(int from, int end) {
    for (int column = from + 1; column < end; ++column)
      if (_row.isColumnNull(column) != _row.isColumnNull(from))
        RefuseColumn(_row, _row.isColumnNull(column) ? column : from,
                     "is NULL, but other numbers of the same value are not");
  }

  template <std::size_t N>
  void CheckParts(const std::array<int, N>& begins) {
    for (std::size_t i = 0; i + 1 < N; ++i) CheckTogether(_next + begins[i], _next + begins[i + 1]);
  }

  template <class T>
  T Read([[maybe_unused]] protocol::IntRange range) {
    if constexpr (Spreadable<T>) {
      std::remove_cvref_t<decltype(Spread<T>::Out(std::declval<const T&>()))> numbers{};
      for (auto& number : numbers) ReadNumber(number);
      return Spread<T>::In(numbers);
    } else if constexpr (std::is_same_v<T, std::string>) {
      return TextIn(_row, _next++);
    } else if constexpr (std::is_same_v<T, double>) {
      return NumberIn(_row, _next++);
    } else if constexpr (std::is_same_v<T, Date>) {
      const int column = _next++;
      return _row.isColumnNull(column) ? Date() : DateIn(_row, column);
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
      return _row.getColumn(_next++).getInt64();
    } else {
      return static_cast<T>(IntegerIn(_row, _next++, std::is_same_v<T, bool> ? kZeroOrOne : range));
    }
  }

  void ReadNumber(double& number) { number = NumberIn(_row, _next++); }
  void ReadNumber(std::optional<double>& number) {
    if (!_row.isColumnNull(_next)) number = NumberIn(_row, _next);
    ++_next;
  }

  SQLite::Statement& _row;
  int _next;
};

}  // namespace lumira
