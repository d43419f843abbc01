#pragma once
// Serves the common layer sizes from two pools of fixed-size slots set aside at
// start-up, so that effects can create and drop full-screen and texture layers every
// time the script starts them without touching the heap. Other sizes go to the heap.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vz {

class LayerManager {
public:
    static constexpr std::size_t smallSlotSize = 65536;

    LayerManager(int smallSlotCount, int screenSlotCount, std::int64_t screenSlotSize);
    ~LayerManager();
    LayerManager(const LayerManager&) = delete;
    LayerManager& operator=(const LayerManager&) = delete;

    // The process-wide manager made by the entry function (null before that: layers then
    // take plain heap memory). install() takes ownership; the manager lives until exit.
    static LayerManager* current();
    static void install(std::unique_ptr<LayerManager> manager);

    void* allocate(std::int64_t size);
    void release(void* pointer);
    // True when allocate(size) takes a slot rather than the heap.
    bool servesFromPool(std::int64_t size) const;

    // The memory two pools of these counts set aside; it counts against the memory
    // budget for as long as the manager lives.
    static std::int64_t poolBytes(int smallSlotCount, int screenSlotCount, std::int64_t screenSlotSize);

    // Inspection for diagnostics and tests.
    std::uint32_t smallMark(int index) const { return smallMarks_[index]; }
    std::uint32_t screenMark(int index) const { return screenMarks_[index]; }
    int smallSlotCount() const { return smallCount_; }
    int screenSlotCount() const { return screenCount_; }
    std::int64_t screenSlotSize() const { return screenSlotSize_; }
    const std::uint8_t* smallPoolBase() const { return smallBase_; }
    const std::uint8_t* screenPool() const { return screenPool_; }

private:
    void* takeScreenSlot();
    void* takeScreenRun();
    void* takeSmallSlot();
    void* takeSmallRun();

    int smallCount_ = 0;
    std::uint8_t* smallBlock_ = nullptr;
    std::uint8_t* smallBase_ = nullptr;
    std::vector<std::uint32_t> smallMarks_;
    std::uint32_t smallCounter_ = 0;
    int screenCount_ = 0;
    std::uint8_t* screenPool_ = nullptr;
    std::vector<std::uint32_t> screenMarks_;
    std::uint32_t screenCounter_ = 0;
    std::int64_t screenSlotSize_ = 0;
    std::int64_t budgeted_ = 0;
};

}  // namespace vz
