#pragma once

#include <memory>
#include <vector>

#include "framework/system/KorBaseUnknown.h"
#include "framework/system/KorStatus.h"
#include "framework/system/KorUnicodeString.h"

class KorXmlDocument;

/// An element of a document, or null. Valid as long as its document lives and keeps its content.
class KOR_FRAMEWORK_API KorXmlElement {
 public:
  KorXmlElement() = default;

  explicit operator bool() const { return _node != nullptr; }
  KorUnicodeString Name() const;
  /// The text directly inside the element.
  KorUnicodeString Text() const;
  void SetText(const KorUnicodeString& text);

  bool HasAttribute(const KorUnicodeString& name) const;
  /// Empty when the attribute is absent.
  KorUnicodeString Attribute(const KorUnicodeString& name) const;
  /// Sets or adds.
  void SetAttribute(const KorUnicodeString& name, const KorUnicodeString& value);

  /// First child element of that name (of any when empty), null when there is none.
  KorXmlElement FirstChild(const KorUnicodeString& name = {}) const;
  /// Next sibling element of that name (of any when empty).
  KorXmlElement NextSibling(const KorUnicodeString& name = {}) const;
  std::vector<KorXmlElement> Children(const KorUnicodeString& name = {}) const;
  KorXmlElement AppendChild(const KorUnicodeString& name);

 private:
  friend class KorXmlDocument;
  explicit KorXmlElement(void* node) : _node(node) {}
  void* _node = nullptr;
};

/// An XML document in memory.
class KOR_FRAMEWORK_API KorXmlDocument : public KorBaseUnknown {
 public:
  KorXmlDocument();
  ~KorXmlDocument() override;

  /// Replaces the content; on failure E_FAIL, the content as it was, and `reason` with offset and cause.
  HRESULT Parse(const KorUnicodeString& xml, KorUnicodeString* reason = nullptr);
  KorUnicodeString Write() const;

  KorXmlElement Root() const;
  /// Drops the content and begins a new one.
  KorXmlElement CreateRoot(const KorUnicodeString& name);

 private:
  struct Content;
  std::unique_ptr<Content> _content;
};

using KorXmlDocument_var = KorVar<KorXmlDocument>;
