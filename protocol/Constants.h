#pragma once

#include <string_view>

namespace protocol {

/// Opens a reply that tells of a failure; the message follows.
inline constexpr std::string_view kErrorHeader = "LumiraError: ";

/// Name of the computed mass type, on the wire and in every list.
inline constexpr std::string_view kComputed = "Computed";

/// An absent value.
inline constexpr std::string_view kNull = "__null__";

/// Stands in for a document identifier when the server failed to find documents.
inline constexpr std::string_view kExceptionFlag = "__EXCEPTION__";

inline constexpr std::string_view kPartInstance = "Part Instance";
inline constexpr std::string_view kPartReference = "Part Reference";

/// The filter that lets every instance pass.
inline constexpr std::string_view kNoFilter = "0|No Filter";

/// Server commands of the desktop itself (the panels' own stand where they are sent).
inline constexpr std::string_view kCommandComputePart = "WBComputeNymValues";
inline constexpr std::string_view kCommandPendingWarnings = "WBGetPendingWarnings";
inline constexpr std::string_view kCommandPartData = "WBGetPartData";
inline constexpr std::string_view kCommandActiveDocument = "WBGetActiveDocInfo";
inline constexpr std::string_view kCommandProducts = "LumGetProducts";
inline constexpr std::string_view kCommandChildren = "LumGetChildren";
inline constexpr std::string_view kCommandSearch = "LumSearchTree";
inline constexpr std::string_view kCommandCurrentRoot = "LumGetCurrentRoot";
inline constexpr std::string_view kCommandSetCurrentRoot = "LumSetCurrentRoot";
inline constexpr std::string_view kCommandFilters = "LumGetConfigFilters";
inline constexpr std::string_view kCommandHandler = "LumGetConfigHandler";
inline constexpr std::string_view kCommandSetHandler = "LumSetConfigHandler";
inline constexpr std::string_view kCommandFindings = "LumGetFindings";
inline constexpr std::string_view kCommandSavePart = "WBSaveNymValues";
inline constexpr std::string_view kCommandHistory = "LumGetHistory";
inline constexpr std::string_view kCommandHistoryState = "LumGetHistoryState";

}  // namespace protocol
