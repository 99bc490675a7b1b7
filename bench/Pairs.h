// Side-by-side timings: a function of the library and a peer that does the same work.
#pragma once

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace fetchkit::bench {

// Registers both under the name, after having checked that they give equal results: a ratio
// between different answers would mean nothing. peerName says what the peer is.
template <class Own, class Peer>
void Pair(const std::string& name, const std::string& peerName, Own own, Peer peer) {
  if (!(own() == peer())) throw std::runtime_error(name + ": the two do not agree");
  const auto add = [](const std::string& full, auto function) {
    benchmark::RegisterBenchmark(full.c_str(), [function](benchmark::State& state) {
      for (auto _ : state)
        benchmark::DoNotOptimize(function());
    });
  };
  add(name + "|own", std::move(own));
  add(name + "|" + peerName, std::move(peer));
}

// One function per source file of benchmarks.
void RegisterTextHelpers();
void RegisterClauses();
void RegisterKeywords();
void RegisterLists();
void RegisterDialogs();

}  // namespace fetchkit::bench
