#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "lumira/commands/Server.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"
#include "tests/lumira/store/Filters.h"

namespace lumira::test {

/// A server on a database of its own. Products come from tables, as those of users do.
class ServerFixture : public testing::Test {
 protected:
  ServerFixture() {
    Remove();
    store = CreateSqliteStore(file).Value();
    server = std::make_unique<Server>(*store);
  }
  ~ServerFixture() override {
    server.reset();
    store.reset();
    Remove();
  }

  void Import(const std::string& structure, const std::string& mass, ImportOptions options = {}) {
    const auto report =
        ImportProduct(*store, {TableSource{"s.csv", structure}, TableSource{"m.csv", mass}}, options);
    ASSERT_TRUE(report.Ok()) << report.Failure().message;
  }

  /// top > box (twice, second with two bolts' quantity) > bolt; bolts weigh 2 kg, plates 10 kg.
  void ImportBoxes() {
    Import(
        "parent,child,instance,quantity,x [m]\n"
        "top,box,left,,-1\ntop,box,right,,1\nbox,bolt,bolts,4,0\nbox,plate,plate,,0\n",
        "part,name,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2]\n"
        "bolt,Bolt M8,2,0,0,0,1,1,1\nplate,Plate,10,0,0,0,1,1,1\n");
  }

  protocol::Result<std::string> ComputeUnder(const std::string& part, const std::string& filter) {
    protocol::ComputeRequest request{.hasInstance = true, .partId = part, .options = {}};
    request.options.filter = filter;
    return server->Execute(protocol::kCommandComputePart, protocol::WriteComputeRequest(request));
  }

  /// kg; what a part weighs under a filter.
  double MassUnder(const std::string& part, const std::string& filter) {
    const auto reply = ComputeUnder(part, filter);
    EXPECT_TRUE(reply.Ok()) << reply.Failure().message;
    if (!reply.Ok()) return -1;
    return protocol::ReadComputeReply(reply.Value()).Value().computed.mass.value_or(-1);
  }

  std::string Refusal(const std::string& part, const std::string& filter) {
    const auto reply = ComputeUnder(part, filter);
    return reply.Ok() ? "computed" : reply.Failure().message;
  }

  /// What another start of the program would see.
  void Restart() {
    server.reset();
    store.reset();
    store = OpenSqliteStore(file).Value();
    server = std::make_unique<Server>(*store);
  }

  std::string Run(std::string_view command, std::string_view request = {}) {
    return server->Run(command, request);
  }

  protocol::MassType Compute(const std::string& part) {
    const auto reply = protocol::ReadComputeReply(Run(protocol::kCommandComputePart, "1|" + part + "|"));
    EXPECT_TRUE(reply.Ok()) << reply.Failure().message;
    return reply.Ok() ? reply.Value().computed : protocol::MassType{};
  }

  protocol::PartData PartData(const protocol::PartDataRequest& request) {
    const auto data =
        protocol::ReadPartData(Run(protocol::kCommandPartData, protocol::WritePartDataRequest(request)));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }

  protocol::PartData PartDataOf(const std::string& part) { return PartData({.partId = part}); }

  std::vector<protocol::Warning> Warnings() {
    return protocol::ReadPendingWarnings(Run(protocol::kCommandPendingWarnings)).Value().warnings;
  }

  void ChangeMass(const std::string& part, double mass) {
    auto product = store->LoadProduct("top").Value();
    for (Part& p : product.parts)
      if (p.id == part) {
        p.massTypes.at(0).properties.mass = mass;
        ASSERT_TRUE(store->UpdatePart(p).Ok());
      }
  }

  std::string file = testing::TempDir() + "server-" + std::to_string(getpid()) + ".lumira";
  std::unique_ptr<Store> store;
  std::unique_ptr<Server> server;

 private:
  void Remove() {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix);
  }
};

}  // namespace lumira::test
