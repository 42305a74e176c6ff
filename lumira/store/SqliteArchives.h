#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

#include "lumira/model/Geometry.h"
#include "lumira/model/MassBounds.h"
#include "lumira/model/Rotation.h"
#include "lumira/store/SqliteColumns.h"

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
  static constexpr std::array kSuffixes = {"volume",          "centroid_x",      "centroid_y",      "centroid_z",
                                           "unit_inertia_xx", "unit_inertia_yy", "unit_inertia_zz", "unit_inertia_xy",
                                           "unit_inertia_xz", "unit_inertia_yz"};
  static std::array<double, 10> Out(const Geometry& g) {
    const auto& [c, i] = std::pair(g.centroid, g.unitInertia);
    return {g.volume, c.x, c.y, c.z, i.xx, i.yy, i.zz, i.xy, i.xz, i.yz};
  }
  static Geometry In(const std::array<double, 10>& n) {
    return {n[0], {n[1], n[2], n[3]}, {n[4], n[5], n[6], n[7], n[8], n[9]}};
  }
};

template <class T>
concept Spreadable = requires { Spread<T>::kSuffixes; };

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
  void operator()(const std::string& name, const T&) {
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

/// Binds the members to the parameters of a statement, from a given parameter on.
class Binder {
 public:
  Binder(SQLite::Statement& statement, int first) : _statement(statement), _next(first) {}

  template <class T>
  void operator()(const char*, const T& value) {
    if constexpr (IsOptional<T>::value)
      value ? Bind(*value) : Skip<typename IsOptional<T>::Value>();
    else
      Bind(value);
  }

 private:
  template <class T>
  void Bind(const T& value) {
    if constexpr (Spreadable<T>)
      for (double number : Spread<T>::Out(value)) _statement.bind(_next++, number);
    else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, double>)
      _statement.bind(_next++, value);
    else
      _statement.bind(_next++, static_cast<std::int64_t>(value));
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
};

/// Fills the members from the columns of the current row, from a given column on.
class RowReader {
 public:
  RowReader(SQLite::Statement& row, int first) : _row(row), _next(first) {}

  template <class T>
  void operator()(const char*, T& value) {
    if constexpr (IsOptional<T>::value)
      ReadOptional(value);
    else
      value = Read<T>();
  }

 private:
  template <class T>
  void ReadOptional(std::optional<T>& value) {
    const bool absent = _row.isColumnNull(_next);
    T read = Read<T>();
    if (!absent) value = std::move(read);
  }

  template <class T>
  T Read() {
    if constexpr (Spreadable<T>) {
      std::array<double, Spread<T>::kSuffixes.size()> numbers{};
      for (double& number : numbers) number = _row.getColumn(_next++).getDouble();
      return Spread<T>::In(numbers);
    } else if constexpr (std::is_same_v<T, std::string>) {
      return _row.getColumn(_next++).getString();
    } else if constexpr (std::is_same_v<T, double>) {
      return _row.getColumn(_next++).getDouble();
    } else {
      return static_cast<T>(_row.getColumn(_next++).getInt64());
    }
  }

  SQLite::Statement& _row;
  int _next;
};

}  // namespace lumira
