#pragma once

#include <QString>
#include <string>

#include "framework/system/KorUnicodeString.h"
#include "protocol/Filter.h"
#include "protocol/Tree.h"

class KorWBCommands;

namespace desktop {

/// The filter under which a product is computed now.
class FilterInForce {
 public:
  /// None: everything counts.
  FilterInForce() = default;

  /// Becomes the one that the filter panel keeps for the product; none without commands. Whether that is
  /// another one. One that is in force still costs a comparison of texts: it is read only when it is another.
  bool Follow(const KorWBCommands* commands, const std::string& product);

  const std::string& Product() const { return _product; }
  bool LetsAllPass() const { return _filter.LetsAllPass(); }
  /// As the panels call it.
  QString Name() const { return _name; }
  /// What it means, for people. Asks the server about a configuration filter; `root` is the product's top
  /// line.
  QString Meaning(const protocol::TreeNode& root) const;
  const protocol::Filter& Definition() const { return _filter; }
  /// A part's data for the part panel. What the server has stored is of the whole product: under a filter it
  /// is no computed value of the part.
  std::string PartDataFor(const std::string& partDataText) const;

  bool operator==(const FilterInForce&) const = default;

 private:
  FilterInForce(const KorWBCommands* commands, const std::string& product);
  bool IsInForce(const KorWBCommands* commands, const std::string& product) const;
  QString MeaningOfConfiguration(const protocol::TreeNode& root) const;
  QString MeaningOfInstances() const;

  std::string _product;
  QString _name;
  KorUnicodeString _text;  ///< as requests carry it
  protocol::Filter _filter;
  QString _unreadable;  ///< why the text cannot be read; empty: it can
};

}  // namespace desktop
