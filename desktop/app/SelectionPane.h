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

/// What is selected: where it stands, what it is, and the last computed values of the part.
class SelectionPane : public QWidget {
 public:
  explicit SelectionPane(QWidget* parent = nullptr);

  void Show(const OccurrencePlace& place, const protocol::PartData& data);
  void ShowNothing();
  /// Shows units and texts anew.
  void RefreshTexts();

  QPushButton* PanelButton() const { return _panelButton; }
  /// The shown text of a row by its key, such as "Selection.Mass"; empty when there is none.
  QString ValueText(const char* key) const;

 private:
  /// The labels of one row; its texts are in the table of rows.
  struct RowLabels {
    QLabel* title;
    QLabel* value;
  };

  void AddRows();

  QLabel* _heading;
  QGroupBox* _part;
  QGroupBox* _computed;
  QPushButton* _panelButton;
  std::vector<RowLabels> _labels;
  std::optional<OccurrencePlace> _place;
  protocol::PartData _data;
};

}  // namespace desktop
