#include "framework/xml/KorXmlDocument.h"

#include <pugixml.hpp>
#include <sstream>

namespace {

pugi::xml_node Node(void* node) { return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node)); }

bool IsText(const pugi::xml_node& node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool Matches(const pugi::xml_node& node, const std::string& name) {
  return node.type() == pugi::node_element && (name.empty() || name == node.name());
}

// The first of `node` and its next siblings that is an element of the name.
pugi::xml_node FirstMatch(pugi::xml_node node, const std::string& name) {
  while (node && !Matches(node, name)) node = node.next_sibling();
  return node;
}

struct Problem {
  std::ptrdiff_t offset = 0;
  std::string cause;
};

// The parser is asked to keep what stands beside the root element, so that more than one root, or text around
// it, is noticed and not dropped.
Problem CheckTopLevel(const pugi::xml_document& document) {
  const pugi::xml_node root = FirstMatch(document.first_child(), {});
  if (!root) return {0, "there is no root element"};
  for (const pugi::xml_node& node : document.children()) {
    if (IsText(node)) return {node.offset_debug(), "there is text outside the root element"};
    if (node != root && Matches(node, {})) return {node.offset_debug(), "there is a second root element"};
  }
  return {};
}

Problem Load(pugi::xml_document& document, const std::string& xml) {
  constexpr unsigned kOptions = pugi::parse_default | pugi::parse_fragment | pugi::parse_ws_pcdata_single;
  const auto result = document.load_buffer(xml.data(), xml.size(), kOptions, pugi::encoding_utf8);
  return result ? CheckTopLevel(document) : Problem{result.offset, result.description()};
}

}  // namespace

struct KorXmlDocument::Content {
  pugi::xml_document document;
};

KorUnicodeString KorXmlElement::Name() const { return Node(_node).name(); }

KorUnicodeString KorXmlElement::Text() const {
  std::string text;
  for (const pugi::xml_node& child : Node(_node).children())
    if (IsText(child)) text += child.value();
  return text;
}

void KorXmlElement::SetText(const KorUnicodeString& text) {
  pugi::xml_node node = Node(_node);
  for (pugi::xml_node child = node.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (IsText(child)) node.remove_child(child);
    child = next;
  }
  if (!text.IsEmpty()) node.prepend_child(pugi::node_pcdata).set_value(text.ConvertToChar());
}

bool KorXmlElement::HasAttribute(const KorUnicodeString& name) const {
  return !Node(_node).attribute(name.ConvertToChar()).empty();
}

KorUnicodeString KorXmlElement::Attribute(const KorUnicodeString& name) const {
  return Node(_node).attribute(name.ConvertToChar()).value();
}

void KorXmlElement::SetAttribute(const KorUnicodeString& name, const KorUnicodeString& value) {
  pugi::xml_attribute attribute = Node(_node).attribute(name.ConvertToChar());
  if (!attribute) attribute = Node(_node).append_attribute(name.ConvertToChar());
  attribute.set_value(value.ConvertToChar());
}

KorXmlElement KorXmlElement::FirstChild(const KorUnicodeString& name) const {
  return KorXmlElement(FirstMatch(Node(_node).first_child(), name.Utf8()).internal_object());
}

KorXmlElement KorXmlElement::NextSibling(const KorUnicodeString& name) const {
  return KorXmlElement(FirstMatch(Node(_node).next_sibling(), name.Utf8()).internal_object());
}

std::vector<KorXmlElement> KorXmlElement::Children(const KorUnicodeString& name) const {
  std::vector<KorXmlElement> children;
  for (KorXmlElement child = FirstChild(name); child; child = child.NextSibling(name))
    children.push_back(child);
  return children;
}

KorXmlElement KorXmlElement::AppendChild(const KorUnicodeString& name) {
  return KorXmlElement(Node(_node).append_child(name.ConvertToChar()).internal_object());
}

KorXmlDocument::KorXmlDocument() : _content(std::make_unique<Content>()) {}

KorXmlDocument::~KorXmlDocument() = default;

HRESULT KorXmlDocument::Parse(const KorUnicodeString& xml, KorUnicodeString* reason) {
  auto content = std::make_unique<Content>();
  const Problem problem = Load(content->document, xml.Utf8());
  if (problem.cause.empty()) {
    _content = std::move(content);
    return S_OK;
  }
  if (reason) *reason = "At offset " + std::to_string(problem.offset) + ": " + problem.cause;
  return E_FAIL;
}

KorUnicodeString KorXmlDocument::Write() const {
  std::ostringstream out;
  _content->document.save(out, "", pugi::format_raw, pugi::encoding_utf8);
  return out.str();
}

KorXmlElement KorXmlDocument::Root() const {
  return KorXmlElement(FirstMatch(_content->document.first_child(), {}).internal_object());
}

KorXmlElement KorXmlDocument::CreateRoot(const KorUnicodeString& name) {
  _content->document.reset();
  return KorXmlElement(_content->document.append_child(name.ConvertToChar()).internal_object());
}
