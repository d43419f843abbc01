#pragma once
// A show for the component benchmarks: a scratch directory, a sequencer, resources added
// under names, and components built from script lines exactly as a demo builds them.
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "script/TextParser.hpp"

namespace vz::bench {

class BenchStage {
public:
    explicit BenchStage(const char* directory) : dir_(std::filesystem::temp_directory_path() / directory) {
        std::filesystem::create_directories(dir_);
        previous_ = std::filesystem::current_path();
        std::filesystem::current_path(dir_);
        std::ofstream("main.txt").flush();
        sequencer_ = std::make_unique<Sequencer>("main.txt", show_);
    }
    ~BenchStage() { std::filesystem::current_path(previous_); }

    std::unique_ptr<Component> make(const std::string& line) {
        std::ofstream("line.txt") << line << "\n";
        TextParser parser;
        parser.open("line.txt");
        parser.nextLine();
        const std::string keyword = parser.getToken();
        ComponentContext context(keyword, parser, show_, *sequencer_);
        std::unique_ptr<Component> component = findComponentBuilder(keyword.c_str())(context);
        component->keepAlive(context.takeBorrowed());
        return component;
    }

    template <class T>
    T& addSymbol(std::unique_ptr<T> resource, const std::string& name) {
        T& ref = *resource;
        show_.repository.add(std::make_unique<Symbol>(std::move(resource)), name);
        return ref;
    }

    Show& show() { return show_; }

private:
    std::filesystem::path dir_, previous_;
    Show show_;
    std::unique_ptr<Sequencer> sequencer_;
};

// The best of the runs of `component` at the times of a 50 frames-a-second show, in seconds.
inline double bestFrameSeconds(benchmark::State& state, Component& component) {
    using Clock = std::chrono::steady_clock;
    double best = 1e9;
    int frame = 0;
    component.run(0.0f);  // the first run sets up what the following ones reuse
    for (auto _ : state) {
        const float t = static_cast<float>(++frame) / 50.0f;
        const auto start = Clock::now();
        component.run(t);
        benchmark::ClobberMemory();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

}  // namespace vz::bench
