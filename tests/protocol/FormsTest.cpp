#include <gtest/gtest.h>

#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace protocol {
namespace {

// Every field differs from its default and from its neighbours, so that a field left out or swapped shows.
constexpr char kPartText[] =
    "PartData/1|P1|i1%7Ci2|PRC|0%7CF|1|1|1|1|1|Weighed|"
    "1|Weighed|2|10|1|2|3|11|12|13|14|15|16|0.25|0.5|1|1|17|18|19|20|"
    "12|0|1|0|-1|0|0|0|0|1|21|22|23|"
    "Steel|7850|1|Brass|8500|Part Instance|1|Lead|11340|2|"
    "1|D1|V2|1|1|V1|1|R1|2024-01-02|ann|bob|Estimated|99|"
    "1|DD/MM/YYYY|1|colour|red|2|1|1|MASS|token|end";

TEST(PartDataForm, ReadsTheFlatFieldsOfAPart) {
  const auto read = ReadPartData(kPartText);
  ASSERT_TRUE(read.Ok()) << read.Failure().message;
  const PartData& part = read.Value();
  EXPECT_EQ(part.partId, "P1");
  EXPECT_EQ(part.instancePath, "i1|i2");
  EXPECT_EQ(part.configurationHandler, "PRC");
  EXPECT_EQ(part.filter, "0|F");
  EXPECT_TRUE(part.hasInstance && part.computed && part.persisted && part.standardPart &&
              part.referenceInertiaMode);
  EXPECT_EQ(part.activeMassType, "Weighed");
  EXPECT_EQ(part.placement, (std::vector<double>{0, 1, 0, -1, 0, 0, 0, 0, 1, 21, 22, 23}));
  EXPECT_TRUE(part.propertiesRequested);
  EXPECT_EQ(part.dateFormat, "DD/MM/YYYY");
  EXPECT_EQ(part.stateToken, "token");
}

TEST(PartDataForm, HasAnOriginOfTheMassTypesUnlessItIsThePart) {
  PartData part = ReadPartData(kPartText).Value();
  EXPECT_EQ(part.massTypesOrigin, Origin{});
  part.massTypesOrigin = {OriginKind::AfterSave, "7"};
  const std::string text = WritePartData(part);
  EXPECT_TRUE(text.ends_with("|MASS|token|3|7|end")) << text;
  EXPECT_EQ(ReadPartData(text).Value().massTypesOrigin, part.massTypesOrigin);
  part.massTypesOrigin = {OriginKind::Part, "7"};
  EXPECT_EQ(ReadPartData(WritePartData(part)).Value().massTypesOrigin, part.massTypesOrigin);
}

TEST(PartDataForm, IsRefusedForHalfAnOriginAndOneOfNoKind) {
  const std::string text(kPartText);
  const std::string open = text.substr(0, text.size() - 3);
  EXPECT_EQ(ReadPartData(open + "3|end").Failure().message,
            "PartData: field 81 (end) is missing, the text ends after field 80");
  EXPECT_NE(ReadPartData(text + "|x").Failure().message.find("more text after field 79 (end)"),
            std::string::npos)
      << ReadPartData(text + "|x").Failure().message;
  EXPECT_NE(ReadPartData(open + "4|7|end").Failure().message.find("\"4\" is not an integer from 0 to 3"),
            std::string::npos);
}

TEST(PartDataForm, ReadsTheMassTypesOfAPart) {
  const auto read = ReadPartData(kPartText);
  ASSERT_TRUE(read.Ok());
  ASSERT_EQ(read.Value().massTypes.size(), 1u);
  const MassType& type = read.Value().massTypes[0];
  EXPECT_EQ(type.name, "Weighed");
  EXPECT_EQ(type.status, MassTypeStatus::OutOfDate);
  EXPECT_EQ(type.mass, 10);
  EXPECT_EQ(type.cg, (Vector{1, 2, 3}));
  EXPECT_EQ(type.inertia, (Tensor{11, 12, 13, 14, 15, 16}));
  EXPECT_EQ(type.lowerDeviation, 0.25);
  EXPECT_EQ(type.upperDeviation, 0.5);
  EXPECT_EQ(type.precisionType, 1);
  EXPECT_EQ(type.precisionValueType, 1);
  EXPECT_EQ(type.lowerPrecision, 17);
  EXPECT_EQ(type.upperPrecision, 18);
  EXPECT_EQ(type.massTypeLowerPrecision, 19);
  EXPECT_EQ(type.massTypeUpperPrecision, 20);
}

TEST(PartDataForm, ReadsMaterialDocumentsAndPropertiesOfAPart) {
  const auto read = ReadPartData(kPartText);
  ASSERT_TRUE(read.Ok());
  const Material& material = read.Value().material;
  EXPECT_EQ(material.name, "Steel");
  EXPECT_EQ(material.density, 7850);
  EXPECT_EQ(material.densityPriority, 1);
  EXPECT_EQ(material.referenceName, "Brass");
  EXPECT_EQ(material.referenceDensity, 8500);
  EXPECT_EQ(material.appliedOn, kPartInstance);
  ASSERT_EQ(material.statistics.size(), 1u);
  EXPECT_EQ(material.statistics[0].name, "Lead");
  EXPECT_EQ(material.statistics[0].density, 11340);
  EXPECT_EQ(material.statistics[0].kind, 2);

  const Documents& documents = read.Value().documents;
  EXPECT_TRUE(documents.used && documents.usedSpecificRevisionBefore);
  EXPECT_EQ(documents.activeId + documents.activeVersion + documents.attachedVersion, "D1V2V1");
  EXPECT_EQ(documents.autoMode, 1);
  ASSERT_EQ(documents.revisions.size(), 1u);
  const DocumentRevision& revision = documents.revisions[0];
  EXPECT_EQ(revision.revision + revision.checkInTime + revision.checkInUser, "R12024-01-02ann");
  EXPECT_EQ(revision.checkOutUser, "bob");
  EXPECT_EQ(revision.massTypes, "Estimated");
  EXPECT_EQ(revision.mass, 99);

  ASSERT_EQ(read.Value().properties.size(), 1u);
  const ExtraProperty& property = read.Value().properties[0];
  EXPECT_EQ(property.name + property.value + property.magnitude, "colourredMASS");
  EXPECT_EQ(property.type, 2);
  EXPECT_TRUE(property.isDate && property.isMagnitude);
}

TEST(PartDataForm, WritesWhatItReads) {
  EXPECT_EQ(WritePartData(ReadPartData(kPartText).Value()), kPartText);
}

TEST(PartDataForm, WritesAnAbsentValueAsNull) {
  PartData part;
  part.massTypes.emplace_back();
  EXPECT_NE(WritePartData(part).find("|0|__null__|__null__|__null__|"), std::string::npos);
  EXPECT_FALSE(ReadPartData(WritePartData(part)).Value().massTypes[0].cg.has_value());
}

TEST(PartDataForm, KeepsAValueThatReadsLikeNull) {
  PartData part;
  part.documents.revisions.push_back({.revision = "__null__",
                                      .checkInTime = {},
                                      .checkInUser = {},
                                      .checkOutUser = "__null__",
                                      .massTypes = {},
                                      .mass = 0});
  const auto back = ReadPartData(WritePartData(part));
  EXPECT_EQ(back.Value().documents.revisions[0].revision, "__null__");
  EXPECT_EQ(back.Value().documents.revisions[0].checkOutUser, "__null__");
}

TEST(PartDataForm, KeepsSeparatorsPercentsAndLineEndsInAValue) {
  PartData part;
  part.material.name = "a|b%7Cc%\r\n\t\"d\" é";
  EXPECT_EQ(ReadPartData(WritePartData(part)).Value().material.name, "a|b%7Cc%\r\n\t\"d\" é");
}

TEST(PartDataForm, CannotBeTakenForAnErrorReplyWhateverItHolds) {
  PartData part;
  part.partId = "LumiraError: fooled";
  EXPECT_FALSE(IsErrorReply(WritePartData(part)));
  EXPECT_EQ(ReadPartData(WritePartData(part)).Value().partId, "LumiraError: fooled");
}

TEST(ErrorReply, OpensWithTheHeader) {
  EXPECT_EQ(ErrorReply("no such part"), "LumiraError: no such part");
  EXPECT_TRUE(IsErrorReply("LumiraError: "));
  EXPECT_TRUE(IsErrorReply("before LumiraError: after"));
  EXPECT_FALSE(IsErrorReply(""));
}

TEST(ComputeRequestForm, TakesTheDefaultsWhenTheOptionsAreEmpty) {
  const auto request = ReadComputeRequest("0|part|");
  ASSERT_TRUE(request.Ok());
  EXPECT_FALSE(request.Value().hasInstance);
  EXPECT_EQ(request.Value().partId, "part");
  EXPECT_EQ(request.Value().options.filter, kNoFilter);
  EXPECT_TRUE(request.Value().options.reuseStoredResults);
}

TEST(ComputeRequestForm, ReadsFlagPartAndOptions) {
  const auto request = ReadComputeRequest("1|my part|ComputeOptions/1|0%7CF|1|0|Steel|end");
  ASSERT_TRUE(request.Ok()) << request.Failure().message;
  EXPECT_TRUE(request.Value().hasInstance);
  EXPECT_EQ(request.Value().partId, "my part");
  EXPECT_EQ(request.Value().options.filter, "0|F");
  EXPECT_TRUE(request.Value().options.referenceInertiaMode);
  EXPECT_FALSE(request.Value().options.reuseStoredResults);
  EXPECT_EQ(request.Value().options.materialName, "Steel");
}

TEST(TreeForms, ReadANodeFieldByField) {
  const auto read = ReadTreeNodes("TreeNodes/1|top|9|3|1|i|p|n|r|4|1|2|5.5|end");
  ASSERT_TRUE(read.Ok()) << read.Failure().message;
  EXPECT_EQ(read.Value().parentPartId, "top");
  EXPECT_EQ(read.Value().total, 9);
  EXPECT_EQ(read.Value().first, 3);
  const TreeNode& node = read.Value().nodes.at(0);
  EXPECT_EQ(node.instanceId + node.partId + node.name + node.revision, "ipnr");
  EXPECT_EQ(node.quantity, 4);
  EXPECT_TRUE(node.hasChildren);
  EXPECT_EQ(node.computedStatus, MassTypeStatus::OutOfDate);
  EXPECT_EQ(node.mass, 5.5);
}

TEST(SaveReplyForm, ReadsPartAndToken) {
  const auto reply = ReadSaveReply("SaveReply/1|bedplate|8|end");
  ASSERT_TRUE(reply.Ok()) << reply.Failure().message;
  EXPECT_EQ(reply.Value().partId, "bedplate");
  EXPECT_EQ(reply.Value().stateToken, "8");
}

TEST(HistoryForms, ReadAnEntryFieldByField) {
  const auto read = ReadHistory("History/1|p|7|1|6|2024-05-01T12:30:00Z|eva|3|1|m|__null__|7850|end");
  ASSERT_TRUE(read.Ok()) << read.Failure().message;
  EXPECT_EQ(read.Value().partId, "p");
  EXPECT_EQ(read.Value().total, 7);
  const HistoryEntry& entry = read.Value().entries.at(0);
  EXPECT_EQ(entry.number, 6);
  EXPECT_EQ(entry.time, "2024-05-01T12:30:00Z");
  EXPECT_EQ(entry.user, "eva");
  EXPECT_EQ(entry.changeCount, 3);
  EXPECT_EQ(entry.changes, (std::vector<FieldChange>{{"m", std::nullopt, "7850"}}));
}

TEST(HistoryForms, RefuseARequestForMoreThanOneReplyHolds) {
  EXPECT_EQ(ReadHistoryRequest("HistoryRequest/1|p|0|1001|end").Failure().message,
            "HistoryRequest: field 4 (limit): \"1001\" is not an integer from 1 to 1000");
  EXPECT_EQ(ReadHistoryStateRequest("HistoryStateRequest/1|p|0|0|end").Failure().message,
            "HistoryStateRequest: field 3 (number): \"0\" is not an integer from 1 to 2147483647");
}

}  // namespace
}  // namespace protocol
