#include <gmock/gmock.h>

#include "ImportFixture.h"
#include "lumira/store/OpenSqliteStore.h"
#include "tests/lumira/store/StoreContract.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Content {
  std::string mass = "part\na\n";
  std::string documents = {};
  std::string properties = {};
};

ImportTables Tables(const Content& content) {
  ImportTables tables{TableSource{"s.csv", kTwoChildren}, {"m.csv", content.mass}};
  if (!content.documents.empty()) tables.documents = TableSource{"d.csv", content.documents};
  if (!content.properties.empty()) tables.properties = TableSource{"p.csv", content.properties};
  return tables;
}

protocol::Result<ImportedProduct> Read(const Content& content, const ImportOptions& options = {}) {
  return ReadProductTables(Tables(content), options);
}

std::string Refusal(const Content& content, const ImportOptions& options = {}) {
  const auto imported = Read(content, options);
  return imported.Ok() ? "imported" : imported.Failure().message;
}

std::string MassRefusal(const std::string& mass) { return Refusal({.mass = mass}); }
std::string DocumentRefusal(const std::string& documents) { return Refusal({.documents = documents}); }
std::string PropertyRefusal(const std::string& properties) { return Refusal({.properties = properties}); }

PartContent ContentOf(const ImportedProduct& imported, const std::string& part) {
  for (const PartContent& content : imported.content.parts)
    if (content.partId == part) return content;
  ADD_FAILURE() << "no content of " << part;
  return {};
}

PartContent Imported(const Content& content, const std::string& part) {
  const auto imported = Read(content);
  EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  return imported.Ok() ? ContentOf(imported.Value(), part) : PartContent{};
}

// ---- precision and material ----

TEST(ContentTables, RelativePrecisionsAreKeptAsFractions) {
  const PartContent a = Imported(
      {.mass = "part,mass type,mass [kg],type lower precision [%],type upper precision [%],user lower "
               "precision [%],user upper precision [%]\n"
               "a,Estimated,200,5,10,,\na,Weighed,210,1,2,0.5,0.25\n"},
      "a");
  EXPECT_THAT(a.details.precisions, ElementsAre(Precision{"Estimated", 0, 0, 0, 0, 0.05, 0.1},
                                                Precision{"Weighed", 1, 0, 0.005, 0.0025, 0.01, 0.02}));
}

TEST(ContentTables, AbsolutePrecisionsAreKeptInKilograms) {
  const PartContent a = Imported(
      {.mass = "part,mass [kg],type lower bound [g],type upper bound [g],user lower bound [t],user upper "
               "bound [t],precision\na,200,500,1500,0.002,0.003,mass type\n"},
      "a");
  EXPECT_THAT(a.details.precisions, ElementsAre(Precision{"Estimated", 0, 1, 2, 3, 0.5, 1.5}));
}

TEST(ContentTables, PrecisionsOnOneRowAreEitherRelativeOrAbsolute) {
  EXPECT_EQ(MassRefusal("part,mass [kg],type lower precision [%],user upper bound [kg]\na,200,5,1\n"),
            "m.csv, line 2, column 4 (user upper bound [kg]): bounds of one mass type are either relative or "
            "absolute; the row has both");
}

TEST(ContentTables, PrecisionsMayNotBeNegative) {
  EXPECT_EQ(MassRefusal("part,mass [kg],user lower precision [%]\na,200,-5\n"),
            "m.csv, line 2, column 3 (user lower precision [%]): a bound may not be negative");
}

TEST(ContentTables, PrecisionWhoseSourceIsUnknownIsRefused) {
  EXPECT_EQ(MassRefusal("part,mass [kg],precision\na,200,supplier\n"),
            "m.csv, line 2, column 3 (precision): \"supplier\" is none of \"mass type\", \"user\"");
}

TEST(ContentTables, PrecisionWithoutMassDataIsLeftOut) {
  const auto imported = Read({.mass = "part,material,user lower precision [%]\na,Steel,5\n"});
  ASSERT_TRUE(imported.Ok());
  EXPECT_THAT(
      imported.Value().report.leftOut,
      ElementsAre("m.csv, line 2, column 3 (user lower precision [%]): the row has no mass data whose "
                  "precision this could be"));
  EXPECT_TRUE(imported.Value().content.parts.empty());
}

TEST(ContentTables, MaterialOfTheReferenceIsKeptWithWhereTheMaterialApplies) {
  const PartContent a = Imported({.mass = "part,applied on,reference material,reference density [g/cm3]\n"
                                          "a,reference,Lead,11.34\n"},
                                 "a");
  EXPECT_EQ(a.details.appliedOn, "Part Reference");
  EXPECT_EQ(a.details.referenceMaterial, "Lead");
  EXPECT_EQ(a.details.referenceDensity, 11340);
  EXPECT_EQ(Imported({.mass = "part,applied on\na,instance\n"}, "a").details.appliedOn, "Part Instance");
}

TEST(ContentTables, PlacesOfAMaterialMayNotDifferOnTwoRows) {
  EXPECT_EQ(MassRefusal("part,mass type,mass [kg],applied on\na,x,1,instance\na,y,1,reference\n"),
            "m.csv, line 3, column 4 (applied on): differs from what another row of the same part says");
  EXPECT_EQ(MassRefusal("part,applied on\na,both\n"),
            "m.csv, line 2, column 2 (applied on): \"both\" is none of \"instance\", \"reference\"");
}

TEST(ContentTables, SurfaceMassOfSheetMaterialIsKept) {
  const auto imported = Read({.mass = "part,material,surface mass [g/cm2]\na,Glass fibre,1.25\n"});
  EXPECT_EQ(PartOf(imported.Value(), "a").surfaceMass, 12.5);
  EXPECT_FALSE(PartOf(imported.Value(), "b").surfaceMass.has_value());
  EXPECT_EQ(MassRefusal("part,surface mass [kg/m2]\na,-1\n"),
            "m.csv, line 2, column 2 (surface mass [kg/m2]): a surface mass may not be negative");
}

// ---- documents ----

constexpr char kDocument[] =
    "part,document,mode,revision,check in time,check in user,check out user,attached,chosen,material,"
    "density [kg/m3],mass type,active,mass [kg],cg x [mm],cg y [mm],cg z [mm],type lower precision [%]\n"
    "a,D-1,attached,A,2020-01-31 08:00:00,eva,,yes,,Steel,7850,Estimated,,10,1,2,3,5\n"
    "a,,,A,,,,,,,,Weighed,yes,11,,,,\n"
    "a,D-1,,B,2021-02-28 23:59:59,max,eva,,yes,,,,,,,,,\n";

TEST(ContentTables, DocumentHasItsRevisionsInTheOrderOfTheRows) {
  const PartContent a = Imported({.documents = kDocument}, "a");
  EXPECT_EQ(a.details.documentId, "D-1");
  const protocol::Documents& documents = a.details.documents;
  EXPECT_TRUE(documents.used);
  EXPECT_EQ(documents.autoMode, 1);
  EXPECT_EQ(documents.attachedVersion, "A");
  EXPECT_EQ(documents.activeVersion, "B");
  EXPECT_TRUE(documents.usedSpecificRevisionBefore);
  ASSERT_EQ(documents.revisions.size(), 2u);
  EXPECT_EQ(documents.revisions[0].revision, "A");
  EXPECT_EQ(documents.revisions[0].checkInTime, "2020-01-31 08:00:00");
  EXPECT_EQ(documents.revisions[0].checkInUser, "eva");
  EXPECT_FALSE(documents.revisions[0].checkOutUser.has_value());
  EXPECT_EQ(documents.revisions[0].massTypes, "Estimated, Weighed");
  EXPECT_EQ(documents.revisions[0].mass, 11) << "of the mass type that is active";
  EXPECT_EQ(documents.revisions[1].checkOutUser, "eva");
  EXPECT_EQ(documents.revisions[1].massTypes, "");
  EXPECT_EQ(documents.revisions[1].mass, 0);
}

TEST(ContentTables, EveryRevisionHasDataOfItsOwn) {
  const PartContent a = Imported({.documents = kDocument}, "a");
  ASSERT_EQ(a.revisions.size(), 2u);
  const RevisionData& first = a.revisions[0];
  EXPECT_EQ(first.revision, "A");
  EXPECT_EQ(first.activeMassType, "Weighed");
  EXPECT_EQ(first.material, "Steel");
  EXPECT_EQ(first.density, 7850);
  ASSERT_EQ(first.massTypes.size(), 2u);
  EXPECT_EQ(first.massTypes[0].properties.cg, (Vec3{0.001, 0.002, 0.003}));
  EXPECT_THAT(first.precisions, ElementsAre(Precision{"Estimated", 0, 0, 0, 0, 0.05, 0}));
  EXPECT_EQ(a.revisions[1], RevisionData{"B"});
}

TEST(ContentTables, DataOfRevisionsDoesNotCountInThePart) {
  const auto imported = Read({.documents = kDocument});
  EXPECT_TRUE(PartOf(imported.Value(), "a").massTypes.empty());
  EXPECT_EQ(imported.Value().report.revisions, 2u);
}

TEST(ContentTables, FirstMassTypeOfARevisionIsActiveWhenNoRowSaysOtherwise) {
  const PartContent a = Imported(
      {.documents = "part,document,revision,mass type,mass [kg]\na,D,A,Estimated,7\na,D,A,Weighed,8\n"}, "a");
  EXPECT_EQ(a.revisions[0].activeMassType, "Estimated");
  EXPECT_EQ(a.details.documents.revisions[0].mass, 7);
}

TEST(ContentTables, PartMayUseDocumentsWithoutHavingOne) {
  const PartContent a = Imported({.documents = "part,document\na,\n"}, "a");
  EXPECT_TRUE(a.details.documents.used);
  EXPECT_EQ(a.details.documentId, "");
}

TEST(ContentTables, DocumentWithoutRevisionsIsTakenWithAWarning) {
  const auto imported = Read({.documents = "part,document\na,D-1\n"});
  ASSERT_TRUE(imported.Ok());
  EXPECT_EQ(ContentOf(imported.Value(), "a").details.documentId, "D-1");
  EXPECT_THAT(imported.Value().report.warnings,
              testing::Contains("d.csv, line 2, column 2 (document): document \"D-1\" has no revisions, so "
                                "that it cannot be found"));
}

TEST(ContentTables, RevisionNeedsADocument) {
  EXPECT_EQ(DocumentRefusal("part,document,revision\na,,A\n"),
            "d.csv, line 2, column 1 (part): part \"a\" has revisions, but no document");
}

TEST(ContentTables, DocumentBelongsToOnePart) {
  EXPECT_EQ(DocumentRefusal("part,document,revision\na,D,A\nb,D,A\n"),
            "d.csv, line 3, column 2 (document): document \"D\" belongs to another part already");
}

TEST(ContentTables, PartHasOneDocument) {
  EXPECT_EQ(DocumentRefusal("part,document,revision\na,D,A\na,E,B\n"),
            "d.csv, line 3, column 2 (document): \"E\" differs from \"D\" on another row of the same part");
}

TEST(ContentTables, IdentifiersOfDocumentsAndRevisionsHoldNoSeparator) {
  EXPECT_EQ(DocumentRefusal("part,document,revision\na,D|1,A|B\n"),
            "d.csv, line 2, column 2 (document): \"D|1\" holds \"|\", which an identifier may not\n"
            "d.csv, line 2, column 3 (revision): \"A|B\" holds \"|\", which an identifier may not");
}

TEST(ContentTables, TimesOfCheckInMustExist) {
  for (const char* time : {"2021-02-29 12:00:00", "2021-02-28 24:00:00", "2021-02-28 23:60:00",
                           "2021-02-28 23:59:60", "2021-02-28", "2021-02-28T12:00:00", "28.02.2021 12:00:00"})
    EXPECT_EQ(DocumentRefusal("part,document,revision,check in time\na,D,A," + std::string(time) + "\n"),
              "d.csv, line 2, column 4 (check in time): \"" + std::string(time) +
                  "\" is no time; YYYY-MM-DD hh:mm:ss expected");
}

TEST(ContentTables, OneRevisionIsAttachedAndOneIsChosen) {
  EXPECT_EQ(
      DocumentRefusal("part,document,revision,attached,chosen\na,D,A,yes,yes\na,D,B,yes,yes\n"),
      "d.csv, line 3, column 4 (attached): revision \"A\" is attached already; one of a document can be\n"
      "d.csv, line 3, column 5 (chosen): revision \"A\" is chosen already; one of a document can be");
}

TEST(ContentTables, AttachedModeNeedsARevisionThatIsAttached) {
  EXPECT_EQ(DocumentRefusal("part,document,mode,revision\na,D,attached,A\n"),
            "d.csv, line 2, column 2 (document): document \"D\" has no revision that is attached");
  EXPECT_EQ(DocumentRefusal("part,document,mode,revision\na,D,newest,A\n"),
            "d.csv, line 2, column 3 (mode): \"newest\" is none of \"most recent\", \"attached\"");
}

TEST(ContentTables, RowsOfARevisionMayNotContradictEachOther) {
  EXPECT_EQ(
      DocumentRefusal("part,document,revision,check in user,material,density [kg/m3],mass type,mass [kg]\n"
                      "a,D,A,eva,Steel,1,x,1\na,D,A,max,Lead,2,x,2\n"),
      "d.csv, line 3, column 4 (check in user): \"max\" differs from \"eva\" on another row of the same "
      "revision\n"
      "d.csv, line 3, column 5 (material): \"Lead\" differs from \"Steel\" on another row of the same "
      "revision\n"
      "d.csv, line 3, column 6 (density [kg/m3]): differs from what another row of the same part says\n"
      "d.csv, line 3, column 7 (mass type): revision \"A\" of part \"a\" has the mass type \"x\" twice");
}

TEST(ContentTables, DataWithoutARevisionIsRefused) {
  EXPECT_EQ(DocumentRefusal("part,document,mass [kg],check in user\na,D,5,eva\n"),
            "d.csv, line 2, column 3 (mass [kg]): there is no revision that this could belong to\n"
            "d.csv, line 2, column 4 (check in user): there is no revision that this could belong to");
}

TEST(ContentTables, NumbersOfRevisionsAreCheckedAsThoseOfParts) {
  EXPECT_EQ(DocumentRefusal("part,document,revision,mass [kg]\na,D,A,1e999\n"),
            "d.csv, line 2, column 4 (mass [kg]): \"1e999\" is not a finite number");
  EXPECT_THAT(
      DocumentRefusal("part,document,revision,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],ixy [kg m2]\n"
                      "a,D,A,1,1,1,1,0\n"),
      HasSubstr("no column \"products\" that says their sign"));
}

TEST(ContentTables, ColumnsOfThePartAreNotKnownInADocumentTable) {
  const auto imported = Read({.documents = "part,document,revision,name\na,D,A,x\n"});
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("d.csv, line 1, column 4 (name): the column is not known"));
}

TEST(ContentTables, DocumentTableNeedsAPartColumn) {
  EXPECT_EQ(DocumentRefusal("document,revision\nD,A\n"), "d.csv, line 1: there is no column \"part\"");
  EXPECT_EQ(DocumentRefusal("part,document,revision\n,D,A\n"),
            "d.csv, line 2, column 1 (part): is empty, an identifier expected");
}

// ---- properties ----

constexpr char kProperties[] =
    "property,type,magnitude,part,value,unit\n"
    "finish,,,a,painted,\n"
    "count,,,a,-7,\n"
    "count,integer,,,,\n"
    "checked,date,,a,2020-02-29,\n"
    "factor,real,,b,+0.50,\n"
    "length,magnitude,LENGTH,a,1250,mm\n"
    "length,,,b,12.70,m\n"
    "load,magnitude,FORCE,a,3e4,N\n";

std::vector<std::string> Values(const PartContent& content) {
  std::vector<std::string> values;
  for (const auto& property : content.details.properties)
    values.push_back(property.name + "=" + property.value);
  return values;
}

TEST(ContentTables, PropertiesAreThoseOfTheProduct) {
  const auto imported = Read({.properties = kProperties});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().content.properties,
              ElementsAre(PropertyDefinition{"finish"}, PropertyDefinition{"count", PropertyType::Integer},
                          PropertyDefinition{"checked", PropertyType::Date},
                          PropertyDefinition{"factor", PropertyType::Real},
                          PropertyDefinition{"length", PropertyType::Magnitude, "LENGTH"},
                          PropertyDefinition{"load", PropertyType::Magnitude, "FORCE"}));
  EXPECT_EQ(imported.Value().report.properties, 6u);
}

TEST(ContentTables, ValuesOfAMagnitudeAreKeptInItsSiUnit) {
  const auto imported = Read({.properties = kProperties});
  EXPECT_THAT(Values(ContentOf(imported.Value(), "a")),
              ElementsAre("finish=painted", "count=-7", "checked=2020-02-29", "length=1.25", "load=3e4"));
}

TEST(ContentTables, ValuesThatNeedNoConversionStayAsTheyWereTyped) {
  const auto imported = Read({.properties = kProperties});
  EXPECT_THAT(Values(ContentOf(imported.Value(), "b")), ElementsAre("factor=+0.50", "length=12.70"));
}

TEST(ContentTables, ValuesThatDoNotFitTheirTypeAreRefused) {
  EXPECT_EQ(
      PropertyRefusal("property,type,magnitude,part,value\ncount,integer,,a,1.5\nchecked,date,,a,2021-02-29\n"
                      "factor,real,,a,abc\nlength,magnitude,LENGTH,a,inf\n"),
      "p.csv, line 2, column 5 (value): \"1.5\" is not a whole number from -2147483648 to 2147483647\n"
      "p.csv, line 3, column 5 (value): \"2021-02-29\" is no date; a day of the calendar as YYYY-MM-DD "
      "expected\n"
      "p.csv, line 4, column 5 (value): \"abc\" is not a finite number\n"
      "p.csv, line 5, column 5 (value): \"inf\" is not a finite number");
}

TEST(ContentTables, PlusAloneIsNoValueOfAnyTypeButText) {
  EXPECT_EQ(
      PropertyRefusal("property,type,magnitude,part,value\ncount,integer,,a,+\nchecked,date,,a, + \n"
                      "factor,real,,a,+\nlength,magnitude,LENGTH,a,+\n"),
      "p.csv, line 2, column 5 (value): \"+\" is not a whole number from -2147483648 to 2147483647\n"
      "p.csv, line 3, column 5 (value): \"+\" is no date; a day of the calendar as YYYY-MM-DD expected\n"
      "p.csv, line 4, column 5 (value): \"+\" is not a finite number\n"
      "p.csv, line 5, column 5 (value): \"+\" is not a finite number");
  EXPECT_EQ(PropertyRefusal("property,type,part,value\nnote,text,a,+\n"), "imported");
}

TEST(ContentTables, ValuesAreCheckedByATypeThatStandsBelowThem) {
  EXPECT_EQ(PropertyRefusal("property,type,part,value\ncount,,a,many\ncount,integer,,\n"),
            "p.csv, line 2, column 4 (value): \"many\" is not a whole number from -2147483648 to 2147483647");
}

TEST(ContentTables, EmptyValueIsAllowedForEveryType) {
  EXPECT_EQ(PropertyRefusal("property,type,part,value\ncount,integer,a,\nchecked,date,a,\nfactor,real,a,\n"),
            "imported");
}

TEST(ContentTables, PropertyHasOneType) {
  EXPECT_EQ(
      PropertyRefusal("property,type\nx,date\nx,real\n"),
      "p.csv, line 3, column 2 (type): \"real\" differs from \"date\" on another row of the same property");
  EXPECT_EQ(
      PropertyRefusal("property,type\nx,colour\n"),
      "p.csv, line 2, column 2 (type): \"colour\" is none of \"text\", \"integer\", \"date\", \"real\", "
      "\"magnitude\"");
}

TEST(ContentTables, MagnitudesMustBeKnown) {
  EXPECT_EQ(PropertyRefusal("property,type,magnitude\nx,magnitude,SMELL\n"),
            "p.csv, line 2, column 3 (magnitude): \"SMELL\" is no magnitude known here");
  EXPECT_EQ(PropertyRefusal("property,type,magnitude\nx,magnitude,\n"),
            "p.csv, line 2, column 3 (magnitude): \"\" is no magnitude known here");
  EXPECT_EQ(
      PropertyRefusal("property,type,magnitude\nx,real,MASS\n"),
      "p.csv, line 2, column 3 (magnitude): has the magnitude \"MASS\", but is not of the type that has "
      "one");
}

TEST(ContentTables, UnitsMustBeThoseOfTheMagnitude) {
  EXPECT_EQ(
      PropertyRefusal("property,type,magnitude,part,value,unit\nx,magnitude,LENGTH,a,1,kg\n"),
      "p.csv, line 2, column 6 (unit): \"kg\" is no unit known here; one of m, mm, cm, in, ft expected");
  EXPECT_EQ(PropertyRefusal("property,type,magnitude,part,value,unit\nx,magnitude,FORCE,a,1,kN\n"),
            "p.csv, line 2, column 6 (unit): \"kN\" is no unit known here; N expected");
  EXPECT_EQ(PropertyRefusal("property,type,part,value,unit\nx,real,a,1,kg\n"),
            "p.csv, line 2, column 5 (unit): only values of a magnitude have a unit, \"kg\" found");
}

TEST(ContentTables, ValuesThatOverflowInTheStorageUnitAreRefused) {
  EXPECT_EQ(PropertyRefusal("property,type,magnitude,part,value,unit\nx,magnitude,MASS,a,1e308,t\n"),
            "p.csv, line 2, column 5 (value): \"1e308\" is too large");
}

TEST(ContentTables, PartHasOneValueOfAProperty) {
  EXPECT_EQ(PropertyRefusal("property,part,value\nx,a,1\nx,a,2\n"),
            "p.csv, line 3, column 2 (part): part \"a\" has a value of \"x\" already");
}

TEST(ContentTables, ValueWithoutAPartIsRefused) {
  EXPECT_EQ(PropertyRefusal("property,part,value,unit\nx,,1,mm\n"),
            "p.csv, line 2, column 3 (value): there is no part that this could belong to\n"
            "p.csv, line 2, column 4 (unit): there is no part that this could belong to");
}

TEST(ContentTables, PropertyNeedsAName) {
  EXPECT_EQ(PropertyRefusal("property,part,value\n,a,1\n"),
            "p.csv, line 2, column 1 (property): is empty, an identifier expected");
  EXPECT_EQ(PropertyRefusal("part,value\na,1\n"), "p.csv, line 1: there is no column \"property\"");
}

// ---- both ----

TEST(ContentTables, PartsThatAreNotInTheStructureAreErrors) {
  EXPECT_EQ(
      Refusal({.documents = "part,document,revision\nz,D,A\n", .properties = "property,part,value\nx,z,1\n"}),
      "d.csv, line 2, column 1 (part): part \"z\" is not in the structure\n"
      "p.csv, line 2, column 2 (part): part \"z\" is not in the structure");
}

TEST(ContentTables, PartsThatAreNotInTheStructureCanBeLeftOut) {
  const auto imported =
      Read({.documents = "part,document,revision\nz,D,A\n", .properties = "property,part,value\nx,z,1\n"},
           {.unknownParts = UnknownParts::LeaveOut});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("d.csv, line 2, column 1 (part): part \"z\" is not in the structure",
                          "p.csv, line 2, column 2 (part): part \"z\" is not in the structure"));
  EXPECT_TRUE(imported.Value().content.parts.empty());
  EXPECT_THAT(imported.Value().content.properties, ElementsAre(PropertyDefinition{"x"}));
}

class ContentTablesInAStore : public testing::Test {
 protected:
  protocol::Result<ImportReport> Import(const Content& content, const ImportOptions& options = {}) {
    return ImportProduct(*store, Tables(content), options);
  }

  TemporaryFolder folder;
  std::unique_ptr<Store> store = CreateSqliteStore(folder.File("p.lumira")).Value();
};

TEST_F(ContentTablesInAStore, AreThereAfterTheImport) {
  ASSERT_TRUE(Import({.documents = kDocument, .properties = kProperties}).Ok());
  EXPECT_EQ(store->PartsOfDocument("D-1").Value().at(0).part, "a");
  EXPECT_EQ(store->LoadRevision("a", "A").Value().massTypes.size(), 2u);
  EXPECT_EQ(store->LoadDetails("b").Value().properties.at(4).value, "12.70");
  EXPECT_EQ(store->LoadDetails("top").Value().properties.size(), 6u);
}

TEST_F(ContentTablesInAStore, AreNotWrittenWhenOneCellIsWrong) {
  EXPECT_FALSE(Import({.documents = kDocument, .properties = "property,type,part,value\nx,real,a,y\n"}).Ok());
  EXPECT_TRUE(store->Products().Value().empty());
  EXPECT_TRUE(store->PartsOfDocument("D-1").Value().empty());
}

TEST_F(ContentTablesInAStore, AreCheckedByADryRunThatWritesNothing) {
  const auto report =
      Import({.documents = kDocument, .properties = kProperties}, {.mode = ImportMode::DryRun});
  ASSERT_TRUE(report.Ok()) << report.Failure().message;
  EXPECT_EQ(report.Value().revisions, 2u);
  EXPECT_TRUE(store->Products().Value().empty());
}

TEST_F(ContentTablesInAStore, AreRefusedWhereAnotherProductHasTheDocument) {
  ASSERT_TRUE(Import({.documents = kDocument}).Ok());
  const ImportTables other{TableSource{"s.csv", "parent,child\nroof,tile\n"},
                           {"m.csv", "part\ntile\n"},
                           {},
                           TableSource{"d.csv", "part,document,revision\ntile,D-1,A\n"}};
  for (const ImportMode mode : {ImportMode::Write, ImportMode::DryRun}) {
    const auto refused = ImportProduct(*store, other, {.mode = mode});
    ASSERT_FALSE(refused.Ok());
    EXPECT_EQ(refused.Failure().kind, protocol::ErrorKind::Conflict);
    EXPECT_EQ(refused.Failure().message,
              "d.csv, line 2, column 2 (document): document \"D-1\" belongs to part \"a\" of product \"top\" "
              "already");
  }
  EXPECT_TRUE(Import({.documents = kDocument}, {.existing = Existing::Replace}).Ok()) << "its own document";
}

}  // namespace
}  // namespace lumira::test
