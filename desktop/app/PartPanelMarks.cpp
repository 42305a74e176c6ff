#include "desktop/app/PartPanelMarks.h"

#include <algorithm>
#include <map>

#include "desktop/app/PartPanelEditors.h"
#include "desktop/app/ReadableTexts.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace desktop {
namespace {

/// What a user can do that changes a text, or whether it can be typed.
constexpr KorEvent kUserEvents[] = {KorEvent::EditorModify, KorEvent::FocusOut,    KorEvent::ComboSelect,
                                    KorEvent::RadioModify,  KorEvent::CheckModify, KorEvent::PushActivate,
                                    KorEvent::TabSelect};

constexpr const char* kPages = "TabContainer001";
constexpr const char* kRevisions =
    "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.ActiveDocsCombo";
constexpr const char* kApply =
    "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.ApplyActiveDocButton";
constexpr const char* kByHand =
    "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.ActiveDocUsrSelButton";
constexpr const char* kNotLoaded = "ERROR!";  ///< the only line after a revision that could not be loaded
constexpr QStringView kStep = u" \u203a ";    ///< between page, frame and label

bool IsWrittenAnew(const TypedText* text) {
  return text != nullptr && !text->problem.isEmpty() && text->now != text->typed;
}

using Reasons = std::map<KorDlgObject*, QStringList>;

void SetMark(KorDlgObject& widget, const Reasons& reasons) {
  const auto found = reasons.find(&widget);
  widget.SetMarking(found == reasons.end() ? KorUnicodeString() : FromQt(found->second.join('\n')));
}

KorDlgObject* PageOf(KorDlgObject& widget) {
  KorDlgObject* above = &widget;
  while (above && above->Kind() != KorDlgKind::TabPage) above = above->Parent();
  return above;
}

/// The title of the label beside an editor; empty when there is none.
QString LabelOf(const KorDlgObject& editor) {
  const KorString label = editor.Name().substr(0, editor.Name().rfind("Editor")) + "Label";
  const auto& siblings = editor.Parent()->Children();
  const auto found = std::ranges::find(siblings, label, [](const auto& one) { return one->Name(); });
  return found == siblings.end() ? QString() : ToQt((*found)->GetTitle());
}

}  // namespace

PartPanelMarks::PartPanelMarks(KorDlgDialog& panel, BufferOf buffer, IsPropertyStored isPropertyStored)
    : _panel(panel),
      _buffer(buffer),
      _isPropertyStored(std::move(isPropertyStored)),
      _typed(panel, std::move(buffer)) {
  ListenBelow(panel);
}

/// Code may change any text without a notification, so that each of them is looked at after each one.
void PartPanelMarks::ListenBelow(KorDlgObject& widget) {
  for (const auto& child : widget.Children()) {
    for (const KorEvent event : kUserEvents)
      child->Subscribe(event, [this, event, &sender = *child](auto...) {
        _typed.Follow(sender, event);
        if (_buffer().AreOldDocumentsUsed()) FollowRevision(sender, event);
        Update();
      });
    ListenBelow(*child);
  }
}

void PartPanelMarks::FollowRevision(const KorDlgObject& sender, KorEvent event) {
  const bool isApplied = event == KorEvent::PushActivate && &sender == &_panel.Find(kApply);
  if (!IsInEditMode(_panel))
    _wantsRevision = false;
  else if (isApplied || event == KorEvent::RadioModify)
    _wantsRevision = _panel.Find<KorDlgRadioButton>(kByHand).IsChecked();
}

std::vector<UnreadText> PartPanelMarks::Find() const {
  if (!IsInEditMode(_panel)) return {};
  std::vector<UnreadText> found = FindInEditors();
  const auto isProperty = [](const UnreadText& text) { return text.property != 0; };
  if (auto revision = FindRevision())
    found.insert(std::ranges::find_if(found, isProperty), std::move(*revision));
  for (UnreadText& hidden : FindInHiddenProperties()) found.push_back(std::move(hidden));
  return found;
}

std::vector<UnreadText> PartPanelMarks::FindInEditors() const {
  std::vector<UnreadText> found;
  for (const ReadEditor& row : ReadEditors()) {
    if (!IsThere(_buffer(), row)) continue;
    auto& editor = _panel.Find<KorDlgEditor>(row.path);
    if (!editor.IsEnabled()) continue;
    if (auto text = FindIn(row, editor)) found.push_back(std::move(*text));
  }
  return found;
}

std::optional<UnreadText> PartPanelMarks::FindIn(const ReadEditor& row, KorDlgEditor& editor) const {
  const LumWBAllDataBuffer& buffer = _buffer();
  const int property = row.content == EditorContent::Property ? ShownProperty(_panel) : 0;
  const TypedText* const inEditor = _typed.In(editor);
  const QString text = ToQt(editor.GetText());
  if (const QString problem = ProblemOf(_panel, buffer, row);
      !problem.isEmpty() && !IsStoredProperty(property, editor))
    return UnreadText{&editor, property, text, problem, StoredInstead(_panel, buffer, row)};
  if (const TypedText* typed = property ? _typed.OfProperty(property) : inEditor; IsWrittenAnew(typed))
    return UnreadText{&editor, property, ToQt(typed->typed), ToldProblem(row, *typed),
                      StoredInstead(_panel, buffer, row)};
  const QString whyNot = inEditor != nullptr ? WhyNotStored(_panel, row) : QString();
  if (whyNot.isEmpty()) return std::nullopt;
  return UnreadText{&editor, property, text, whyNot, whyNot};
}

/// The shown property is as the server has it, which takes it as it is.
bool PartPanelMarks::IsStoredProperty(int property, const KorDlgEditor& editor) const {
  if (property == 0) return false;
  const bool isTouched =
      _typed.In(editor) != nullptr && editor.GetText() != _buffer().GetPropertyValue(property);
  return _isPropertyStored(property) && !isTouched;
}

/// In the language of now, which may be another one than when it was typed.
QString PartPanelMarks::ToldProblem(const ReadEditor& row, const TypedText& typed) const {
  const QString problem = ProblemOfText(_panel, _buffer(), row, typed.typed);
  return problem.isEmpty() ? typed.problem : problem;
}

/// The panel says so in its list only, which stays so, and saves as if the automatic revision had been
/// chosen. Where that is stored already, and nobody has asked for another one since, nothing is lost.
std::optional<UnreadText> PartPanelMarks::FindRevision() const {
  if (!_buffer().AreOldDocumentsUsed() || !_panel.Find<KorDlgRadioButton>(kByHand).IsChecked()) return {};
  auto& revisions = _panel.Find<KorDlgCombo>(kRevisions);
  if (revisions.GetSelectedLine() != kNotLoaded) return {};
  if (!_wantsRevision && !_buffer().HasUsedSpecificRevBefore()) return {};
  return UnreadText{&revisions, 0, ToQt(revisions.GetSelectedLine()), Text("Unread.Revision"),
                    Text("Unread.AutomaticRevision")};
}

/// The panel takes the text of a property into the buffer when another one is shown, whatever it is.
std::vector<UnreadText> PartPanelMarks::FindInHiddenProperties() const {
  const LumWBAllDataBuffer& buffer = _buffer();
  if (!buffer.AdditionalInfoRequested()) return {};
  std::vector<UnreadText> found;
  for (int index = 1; index <= buffer.GetPropertyCount(); ++index)
    if (index != ShownProperty(_panel))
      if (auto text = FindInHiddenProperty(index)) found.push_back(std::move(*text));
  return found;
}

std::optional<UnreadText> PartPanelMarks::FindInHiddenProperty(int index) const {
  const LumWBAllDataBuffer& buffer = _buffer();
  auto& editor = _panel.Find<KorDlgEditor>(kPropertyValuePath);
  if (const TypedText* typed = _typed.OfProperty(index))
    return UnreadText{&editor, index, ToQt(typed->typed), FindPropertyProblem(buffer, index, typed->typed),
                      StoredOfProperty(buffer, index, typed->typed)};
  const QString problem = _isPropertyStored(index) ? QString() : ProblemOfStoredProperty(buffer, index);
  if (problem.isEmpty()) return std::nullopt;
  return UnreadText{&editor, index, ToQt(buffer.GetPropertyValue(index)), problem, Text("Unread.Refused")};
}

void PartPanelMarks::Update() {
  const LumWBAllDataBuffer& buffer = _buffer();
  Reasons reasons;
  for (const UnreadText& text : Find()) {
    const bool isHidden = text.property != 0 && text.property != ShownProperty(_panel);
    const QString placed = Text("Unread.Place", {PlaceOf(text, buffer), text.problem});
    if (isHidden)
      reasons[&_panel.Find(kPropertyNamePath)] << placed;
    else
      reasons[text.editor] << text.problem;
    reasons[PageOf(*text.editor)] << placed;
  }
  for (const ReadEditor& row : ReadEditors())
    if (IsThere(buffer, row)) SetMark(_panel.Find(row.path), reasons);
  if (buffer.AdditionalInfoRequested()) SetMark(_panel.Find(kPropertyNamePath), reasons);
  if (buffer.AreOldDocumentsUsed()) SetMark(_panel.Find(kRevisions), reasons);
  for (const auto& page : _panel.Find(kPages).Children()) SetMark(*page, reasons);
}

QString PlaceOf(const UnreadText& text, const LumWBAllDataBuffer& buffer) {
  QStringList steps{text.property ? ToQt(buffer.GetPropertyName(text.property)) : LabelOf(*text.editor)};
  for (const KorDlgObject* above = text.editor->Parent(); above->Kind() != KorDlgKind::TabContainer;
       above = above->Parent())
    steps.prepend(ToQt(above->GetTitle()));
  steps.removeAll(QString());
  return steps.join(kStep);
}

}  // namespace desktop
