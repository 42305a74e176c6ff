#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "desktop/app/OccurrencePlace.h"
#include "protocol/PartData.h"

class QGroupBox;
class QLabel;
class QPushButton;

namespace desktop {

/// What is selected: where it stands, what it is, and its values: the last computed ones, and beside them
/// those of the active mass type when that is another.
class SelectionPane : public QWidget {
 public:
  explicit SelectionPane(QWidget* parent = nullptr);

  void Show(const OccurrencePlace& place, const protocol::PartData& data);
  void ShowNothing();
  /// Says beside the values, which are of the whole product, that a filter is in force; empty: none is.
  void ShowFilter(const QString& name);
  /// Shows units and texts anew.
  void RefreshTexts();

  QPushButton* PanelButton() const { return _panelButton; }
  /// The shown text of a line on the part by its key, such as "Selection.Path"; empty when there is none.
  QString PartText(const char* key) const;
  /// The same of a line of values, such as "Selection.Mass".
  QString ComputedText(const char* key) const;
  /// What is said of a filter; empty when nothing is.
  QString FilterNote() const;
  /// Empty while the active mass type has no column of its own.
  QString ActiveText(const char* key) const;

 private:
  /// The labels of one line; its texts are in the tables of lines.
  struct PartLabels {
    QLabel* title;
    QLabel* value;
  };
  struct ValueLabels {
    QLabel* title;
    QLabel* active;
    QLabel* computed;
  };

  void AddPartRows();
  void AddValueRows();
  void RefreshPart();
  void RefreshValues();
  void ShowColumn(QLabel* ValueLabels::*column, const protocol::MassType& type);
  QString ValueText(const char* key, QLabel* ValueLabels::*column) const;

  QLabel* _heading;
  QGroupBox* _part;
  QGroupBox* _values;
  QLabel* _note;
  QLabel* _filterNote;
  QPushButton* _panelButton;
  std::vector<PartLabels> _partLabels;
  std::vector<ValueLabels> _valueLabels;  ///< the first line names the mass types
  QString _filterName;
  std::optional<OccurrencePlace> _place;
  protocol::PartData _data;
};

}  // namespace desktop
