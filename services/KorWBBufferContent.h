#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "protocol/PartData.h"
#include "services/KorWBAllDataBuffer.h"

/// What a buffer holds: the data as on the wire, in metres, and beside each centre of gravity and each value
/// of an extra property the same in millimetres.
///
/// Both are kept because the conversion there and back may change the last bit: the panels get exactly the
/// millimetres that they set, the server exactly the metres that it sent as long as nobody set another value.
struct KorWBAllDataBuffer::Content {
  using Coordinates = std::array<double, 3>;

  protocol::PartData data;
  std::vector<std::optional<Coordinates>> cgMillimetres;  ///< parallel to data.massTypes
  std::vector<std::string> propertyTexts;  ///< parallel to data.properties; values as panels see them
  // The first two stand in no data text: new data leave them as they are.
  bool mayReuseStoredResults = true;       ///< whether a compute may answer from results stored before
  bool computableWithUserMassType = true;  ///< whether a compute makes sense with a user mass type active
  std::set<std::string> storedWithoutValues;  ///< mass types
  std::string storedDocumentId;            ///< active document of the stored state
  std::string storedDocumentVersion;       ///< likewise, as the data were read or as the user chose it
  std::string serverDocumentVersion;       ///< likewise, as the server has it: empty after an automatic save
  KorUnicodeString lastRefusal;            ///< why the last text was refused; empty: it was not

  /// Takes over the wire data of a stored state.
  void ReplaceStored(protocol::PartData newData);
  /// Takes over other wire data of the same part, which the stored state goes on without, and works the
  /// millimetres out anew.
  void Replace(protocol::PartData newData);

  /// As `Replace`, but what belongs to the selection stays. What the data tell as computed is about the
  /// filter that they name: under another one the computed values stay too, since nothing else is known of
  /// them.
  void TakeOtherState(protocol::PartData newData);

  /// Null when the mass type is not listed.
  protocol::MassType* Find(const KorUnicodeString& massType);
  const protocol::MassType* Find(const KorUnicodeString& massType) const;
  /// The centre of gravity in mm of a listed mass type.
  const std::optional<Coordinates>& CgOf(const protocol::MassType& massType) const;

  /// `mm` holds three lengths. A coordinate that does not differ from the present one keeps its metres.
  void SetCg(protocol::MassType& massType, const double* mm);
  void RemoveCg(protocol::MassType& massType);
  /// `text` is in millimetres when the property is a length. A value that does not differ from the present
  /// one keeps its metres.
  void SetPropertyText(std::size_t index, const std::string& text);
  /// The data as they are now are the stored state of that token. Which document is active follows the rules
  /// of the server.
  void SetSaved(const std::string& stateToken);
  /// Takes over the values of a compute; the bounds that the user typed stay.
  void SetComputed(const protocol::MassType& computed);

 private:
  void SetSavedDocument();
  void ForgetRemovedDeviations();
  void NoteWhatHasNoValues();
  std::size_t IndexOf(const protocol::MassType& massType) const {
    return static_cast<std::size_t>(&massType - data.massTypes.data());
  }
};
