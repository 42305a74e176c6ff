#include <gtest/gtest.h>

#include "services/KorLumWBCSCommonServices.h"

namespace {

TEST(DomFromText, IsTheDocumentOfAnXmlReply) {
  KorXmlDocument_var document;
  EXPECT_EQ(KorLumWBCSCommonServices::GetDOMFromXMLStringBuffer("<Report><Mass>1</Mass></Report>", document),
            S_OK);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->Root().FirstChild("Mass").Text(), "1");
  EXPECT_EQ(document->ReferenceCount(), 1u);
}

TEST(DomFromText, IsNullForATextThatIsNoXml) {
  for (const char* text : {"", "LumiraError: no", "<Report>", "<a/><b/>"}) {
    auto document = KorXmlDocument_var::Adopt(new KorXmlDocument);
    EXPECT_EQ(KorLumWBCSCommonServices::GetDOMFromXMLStringBuffer(text, document), E_FAIL) << text;
    EXPECT_FALSE(document) << text;
  }
}

}  // namespace
