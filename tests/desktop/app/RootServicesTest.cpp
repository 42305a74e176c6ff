// The services of the current root as the embedded server answers them: no reply here is written by hand.
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"
#include "services/KorImmKitServices.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

using List = KorListValKorUnicodeString;

class RootServicesTest : public WindowTest {
 protected:
  void Tell(std::string_view command, const std::string& request) {
    const std::string reply = window.Session().Transport().Run(std::string(command), request);
    ASSERT_FALSE(protocol::IsErrorReply(reply)) << reply;
  }
  void SetRoot(const std::string& product) {
    Tell(protocol::kCommandSetCurrentRoot, protocol::WriteRootRequest({product}));
  }
  void SetHandler(const std::optional<std::string>& filter) {
    Tell(protocol::kCommandSetHandler, protocol::WriteConfigurationHandler({"IEA15", filter}));
  }
  HRESULT AskForRoot() { return KorImmKitServices::GetCurrentRootIdentifiers(roots, products, text); }

  // Something old, which no answer may leave standing.
  List roots{"old"}, products{"old", "older"};
  List ids{"old"}, names{"old", "older"};
  KorUnicodeString text = "old", handler = "old";
};

TEST_F(RootServicesTest, TheCurrentRootIsThatOfTheProductThatTheSessionWorksOn) {
  SetRoot("IEA15");
  EXPECT_EQ(AskForRoot(), S_OK);
  EXPECT_EQ(roots, List{"RNA"});
  EXPECT_EQ(products, List{"IEA15"});
  EXPECT_EQ(text, "Rotor-nacelle assembly");
}

TEST_F(RootServicesTest, ThereIsNoCurrentRootOnceTheSessionHasNone) {
  SetRoot("IEA15");
  SetRoot("");
  EXPECT_EQ(AskForRoot(), E_FAIL);
  EXPECT_TRUE(roots.Size() == 0 && products.Size() == 0 && text.IsEmpty());
}

TEST_F(RootServicesTest, TheFiltersOfTheCurrentRootAreThoseOfItsProductByName) {
  SetRoot("IEA15");
  ASSERT_EQ(AskForRoot(), S_OK);
  EXPECT_EQ(KorImmKitServices::GetPRCConfigFilter(roots, products, ids, names), S_OK);
  EXPECT_EQ(names, (List{"As built 2020", "Rotating parts", "Structure only", "Without generator"}));
  EXPECT_EQ(ids, (List{"IEA15/As built 2020", "IEA15/Rotating parts", "IEA15/Structure only",
                       "IEA15/Without generator"}));
}

TEST_F(RootServicesTest, FiltersOfAProductThatIsNotThereAreRefusedWithEmptyLists) {
  EXPECT_EQ(KorImmKitServices::GetPRCConfigFilter({"RNA"}, {"Nobody"}, ids, names), E_FAIL);
  EXPECT_TRUE(ids.Size() == 0 && names.Size() == 0);
}

TEST_F(RootServicesTest, FiltersOfMoreRootsThanProductsAreRefusedWithEmptyLists) {
  EXPECT_EQ(KorImmKitServices::GetPRCConfigFilter({"RNA", "RNA"}, {"IEA15"}, ids, names), E_FAIL);
  EXPECT_TRUE(ids.Size() == 0 && names.Size() == 0);
}

TEST_F(RootServicesTest, TheHandlerIsTheFilterThatIsSetOnTheProduct) {
  SetHandler("Structure only");
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("IEA15", handler), S_OK);
  EXPECT_EQ(handler, "Structure only");
}

TEST_F(RootServicesTest, TheHandlerIsThereAgainWhenTheProductIsOpenedAnew) {
  SetHandler("Structure only");
  ASSERT_TRUE(window.OpenProduct(File()));
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("IEA15", handler), S_OK);
  EXPECT_EQ(handler, "Structure only");
}

TEST_F(RootServicesTest, AProductOnWhichNoFilterIsSetHasNoHandler) {
  SetHandler("Structure only");
  SetHandler(std::nullopt);
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("IEA15", handler), S_FALSE);
  EXPECT_EQ(handler, "");
}

TEST_F(RootServicesTest, TheHandlerOfAProductThatIsNotThereIsRefused) {
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("Nobody", handler), E_FAIL);
  EXPECT_EQ(handler, "");
}

}  // namespace
}  // namespace desktop::test
