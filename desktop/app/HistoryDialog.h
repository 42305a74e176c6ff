#pragma once

#include <QDialog>
#include <functional>

#include "desktop/app/HistoryModel.h"
#include "desktop/app/HistoryTexts.h"

class QLabel;
class QPushButton;
class QTableView;
class QTableWidget;
class QTimer;

namespace desktop {

/// The saves of a part: who, when, how many fields; the changed fields of the chosen one with their values
/// before and after. Either state can be saved again.
class HistoryDialog : public QDialog {
 public:
  /// Shows nothing before Reload().
  HistoryDialog(const std::string& part, QWidget* parent);

  /// The user wants a state to be saved again, on top of what the list told of: the token is that of the
  /// part as it was when the list was read, so that the server refuses to replace what was saved since.
  std::function<void(protocol::HistoryStateRequest state, std::string seenToken)> onSaveAgain;
  std::function<void(const protocol::Error&)> onError;

  const std::string& Part() const { return _model->Part(); }
  /// Asks the server for what is new. The chosen save stays chosen, the list stays where it was scrolled to,
  /// and as long as it was; what cannot be read leaves everything as it was.
  void Reload();
  /// Shows texts and units anew.
  void RefreshTexts();

  HistoryModel& Saves() const { return *_model; }
  QTableView& SaveList() const { return *_saves; }
  QTableWidget& FieldList() const { return *_fields; }
  QPushButton& BeforeButton() const { return *_before; }
  QPushButton& AfterButton() const { return *_after; }
  QPushButton& MoreButton() const { return *_more; }
  QString Heading() const;
  /// What is said of fields that are not listed, and of values whose meaning is not known; else empty.
  QString FieldNote() const;

 private:
  void Build();
  QWidget* MakeButtons();
  const protocol::HistoryEntry* Chosen() const;
  void ChooseNumber(int number);
  void ShowCounts();
  void ShowFields();
  void FillFields(const protocol::HistoryEntry& save);
  void ShowFieldNote(const protocol::HistoryEntry& save, bool hasUnknownKinds);
  void ShowOtherSave();
  void ShowMore();
  void SaveAgain(protocol::HistoryMoment moment);

  HistoryModel* _model;
  HistoryContext _now;     ///< of the part as it is stored
  std::string _seenToken;  ///< of a state that the list leads to; it may tell of later saves, never of fewer
  QLabel* _heading;
  QTableView* _saves;
  QPushButton* _more;
  QLabel* _fieldTitle;
  QTableWidget* _fields;
  QTimer* _fitRows;  ///< of the fields
  QLabel* _fieldNote;
  QPushButton* _before;
  QPushButton* _after;
  QPushButton* _close;
};

}  // namespace desktop
