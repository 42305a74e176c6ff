#include "benchmarks/rollup/Structures.h"

#include <cmath>
#include <random>
#include <string>

namespace bench {
namespace {

using lumira::GraphPart;
using lumira::Placement;
using lumira::ProductGraph;
using lumira::Rotation;

/// Makes parts and placements from one stream of numbers, so that a structure is the same in every run.
class Maker {
 public:
  explicit Maker(Rotations rotations) : _rotations(rotations) {
    for (auto& rotation : _few) rotation = RandomRotation();
  }

  GraphPart Item() {
    GraphPart part;
    auto& item = part.item;
    item.massKnown = item.cgKnown = item.inertiaKnown = item.boundsKnown = true;
    item.mass = Between(0.1, 10.0);
    item.cg = {Between(-1, 1), Between(-1, 1), Between(-1, 1)};
    item.inertia = {Between(1, 2),    Between(1, 2),    Between(1, 2),
                    Between(-.1, .1), Between(-.1, .1), Between(-.1, .1)};
    item.deviations = {0.01 * item.mass, {1e-3, 1e-3, 1e-3}, {.02, .02, .02, .01, .01, .01}};
    item.bounds = {0.02 * item.mass, 0.03 * item.mass};
    return part;
  }

  Placement Place() {
    const auto rotation = _rotations == Rotations::AllDifferent ? RandomRotation() : _few[_random() % 64];
    return {rotation, {Between(-5, 5), Between(-5, 5), Between(-5, 5)}};
  }

  std::uint32_t Index(std::uint32_t count) { return static_cast<std::uint32_t>(_random() % count); }

 private:
  double Between(double low, double high) { return std::uniform_real_distribution<>(low, high)(_random); }

  /// From a random unit quaternion.
  Rotation RandomRotation() {
    std::normal_distribution<> normal;
    double w = normal(_random), x = normal(_random), y = normal(_random), z = normal(_random);
    const double norm = std::sqrt(w * w + x * x + y * y + z * z);
    w /= norm, x /= norm, y /= norm, z /= norm;
    return {{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y), 2 * (x * y + w * z),
             1 - 2 * (x * x + z * z), 2 * (y * z - w * x), 2 * (x * z - w * y), 2 * (y * z + w * x),
             1 - 2 * (x * x + y * y)}};
  }

  Rotations _rotations;
  std::mt19937_64 _random{20240229};
  Rotation _few[64];
};

std::uint32_t PartCount(const ProductGraph& graph) { return static_cast<std::uint32_t>(graph.parts.size()); }

}  // namespace

ProductGraph EightEach(std::uint32_t items, Rotations rotations) {
  Maker maker(rotations);
  ProductGraph graph;
  graph.parts.reserve(items + items / 7 + 64);
  graph.edges.reserve(items + items / 7 + 64);
  for (std::uint32_t i = 0; i < items; ++i) graph.parts.push_back(maker.Item());
  for (std::uint32_t from = 0, to = items; to - from > 1; from = to, to = PartCount(graph)) {
    for (std::uint32_t child = from; child < to; ++child) {
      if ((child - from) % 8 == 0) graph.parts.emplace_back();
      graph.edges.push_back({PartCount(graph) - 1, child, 1.0, maker.Place()});
    }
  }
  return graph;
}

ProductGraph Chain(std::uint32_t links, Rotations rotations) {
  Maker maker(rotations);
  ProductGraph graph;
  for (std::uint32_t i = 0; i < links; ++i) {
    graph.parts.push_back(maker.Item());
    graph.parts.emplace_back();
    const auto top = PartCount(graph) - 1;
    graph.edges.push_back({top, top - 1, 1.0, maker.Place()});
    if (i > 0) graph.edges.push_back({top, top - 2, 1.0, maker.Place()});
  }
  return graph;
}

ProductGraph Shared(std::uint32_t levels, std::uint32_t width, std::uint32_t top) {
  Maker maker(Rotations::AllDifferent);
  ProductGraph graph;
  for (std::uint32_t i = 0; i < width; ++i) graph.parts.push_back(maker.Item());
  const auto place = [&](std::uint32_t below, std::uint32_t count) {
    const auto parent = PartCount(graph) - 1;
    for (std::uint32_t i = 0; i < count; ++i) {
      graph.edges.push_back({parent, below + maker.Index(width), 1.0, maker.Place()});
    }
  };
  for (std::uint32_t level = 1; level < levels; ++level) {
    for (std::uint32_t i = 0; i < width; ++i) {
      graph.parts.emplace_back();
      place((level - 1) * width, 8);
    }
  }
  graph.parts.emplace_back();
  place((levels - 1) * width, top);
  return graph;
}

lumira::Product AsProduct(const ProductGraph& graph) {
  lumira::Product product;
  product.id = "bench";
  const auto name = [](std::uint32_t part) { return "part-" + std::to_string(part); };
  for (std::uint32_t i = 0; i < graph.parts.size(); ++i) {
    auto& part = product.parts.emplace_back();
    part.id = name(i);
    const auto& item = graph.parts[i].item;
    if (!item.massKnown) continue;
    part.activeMassType = "Weighed";
    part.massTypes.push_back({"Weighed", {item.mass, item.cg, item.inertia}, item.deviations, item.bounds});
  }
  for (std::uint32_t i = 0; i < graph.edges.size(); ++i) {
    const auto& edge = graph.edges[i];
    product.instances.push_back({"instance-" + std::to_string(i), name(edge.parent), name(edge.child),
                                 static_cast<std::int64_t>(edge.quantity), edge.placement});
  }
  product.roots = {name(PartCount(graph) - 1)};
  return product;
}

}  // namespace bench
