#pragma once

#include <string>
#include <string_view>

#include "protocol/FieldReader.h"
#include "protocol/FieldWriter.h"

/// A form with its head and its end mark, for any type with a `Form` that has a `kHead`.
namespace protocol {

template <class X>
std::string WriteForm(const X& x) {
  FieldWriter writer(Form<X>::kHead);
  Form<X>::Fields(writer, x);
  return writer.Finish();
}

template <class X>
Result<X> ReadForm(std::string_view text) {
  FieldReader reader(Form<X>::kHead, text);
  X x;
  Form<X>::Fields(reader, x);
  reader.Finish();
  if (reader.Failure()) return *reader.Failure();
  return x;
}

}  // namespace protocol
