#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "protocol/Codec.h"
#include "services/LumWBAllDataBuffer.h"

/// A buffer that fails where a test says so, and writes down which of its operations are called.
class ProbeBuffer : public LumWBAllDataBuffer {
 public:
  static KorVar<ProbeBuffer> Of(const protocol::PartData& part) {
    auto buffer = KorVar<ProbeBuffer>::Adopt(new ProbeBuffer);
    buffer->SetAllData(protocol::WritePartData(part), true);
    return buffer;
  }

  /// Operation and the status that it answers with, such as "GetLowerDeviation".
  std::map<std::string, HRESULT> failures;
  std::optional<std::vector<double>> placement;
  /// Names of the operations below, in the order of the calls.
  mutable std::vector<std::string> calls;

  HRESULT GetComputedInfo(KorUnicodeString& text) const override {
    return Outcome("GetComputedInfo", [&] { return LumWBAllDataBuffer::GetComputedInfo(text); });
  }
  HRESULT GetCalculationUpToDate(bool& upToDate) const override {
    return Outcome("GetCalculationUpToDate",
                   [&] { return LumWBAllDataBuffer::GetCalculationUpToDate(upToDate); });
  }
  HRESULT SetCalculationUpToDate(bool upToDate) override {
    return Outcome("SetCalculationUpToDate",
                   [&] { return LumWBAllDataBuffer::SetCalculationUpToDate(upToDate); });
  }
  HRESULT SetPreComputeSwitch(bool mayReuse) override {
    return Outcome(mayReuse ? "SetPreComputeSwitch(true)" : "SetPreComputeSwitch(false)",
                   [&] { return LumWBAllDataBuffer::SetPreComputeSwitch(mayReuse); });
  }
  HRESULT SetReferenceInertiaMode(bool atReference) override {
    return Outcome(atReference ? "SetReferenceInertiaMode(true)" : "SetReferenceInertiaMode(false)",
                   [&] { return LumWBAllDataBuffer::SetReferenceInertiaMode(atReference); });
  }
  KorUnicodeString GetMaterialName() const override {
    calls.push_back("GetMaterialName");
    return LumWBAllDataBuffer::GetMaterialName();
  }
  HRESULT SetMaterialName(const KorUnicodeString& name) override {
    return Outcome("SetMaterialName", [&] { return LumWBAllDataBuffer::SetMaterialName(name); });
  }
  double GetDensity() const override {
    calls.push_back("GetDensity");
    return LumWBAllDataBuffer::GetDensity();
  }
  HRESULT SetFilter(const KorUnicodeString& filter) override {
    return Outcome("SetFilter", [&] { return LumWBAllDataBuffer::SetFilter(filter); });
  }
  KorListValKorUnicodeString GetMassTypeList() const override {
    calls.push_back("GetMassTypeList");
    return LumWBAllDataBuffer::GetMassTypeList();
  }
  HRESULT GetMassTypeDefined(const KorUnicodeString& massType, int& status) const override {
    return Outcome("GetMassTypeDefined",
                   [&] { return LumWBAllDataBuffer::GetMassTypeDefined(massType, status); });
  }
  int GetMassTypeDefined(const KorUnicodeString& massType) const override {
    return LumWBAllDataBuffer::GetMassTypeDefined(massType);
  }
  HRESULT GetLowerDeviation(const KorUnicodeString& massType, double& deviation) const override {
    return Outcome("GetLowerDeviation",
                   [&] { return LumWBAllDataBuffer::GetLowerDeviation(massType, deviation); });
  }
  HRESULT GetUpperDeviation(const KorUnicodeString& massType, double& deviation) const override {
    return Outcome("GetUpperDeviation",
                   [&] { return LumWBAllDataBuffer::GetUpperDeviation(massType, deviation); });
  }
  std::vector<double> GetPlacement() const override {
    return placement ? *placement : LumWBAllDataBuffer::GetPlacement();
  }

 protected:
  template <class Operation>
  HRESULT Outcome(const std::string& name, Operation operation) const {
    calls.push_back(name);
    const auto failure = failures.find(name);
    return failure == failures.end() ? operation() : failure->second;
  }
};
