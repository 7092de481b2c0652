#pragma once

#include "COutput.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

/// Runs work(i) for the numbers below count on all cores, and take(i) in this thread, in their
/// order, until that returns false. Only a few are ahead of the one whose turn it is. What work(i)
/// throws is thrown when its turn comes.
void workInOrder(int count, const std::function<void(int)>& work,
                 const std::function<bool(int)>& take);

/// Runs task(i) for each of a number of things on all cores, and hands the results, with what was
/// printed meanwhile, to take(i, result) in the order of the things, until that returns false.
template <class CTask, class CTake>
void inOrder(int count, COutput& out, const CTask& task, const CTake& take) {
  if (count == 1) {
    take(0, task(0));
    return;
  }
  using CResult = decltype(task(0));
  std::vector<std::optional<std::pair<CResult, CPrinted>>> done(static_cast<size_t>(count));
  const auto work = [&](int i) {
    COutput::CTurn turn(out);
    CResult result = task(i);
    done[static_cast<size_t>(i)] = {std::move(result), turn.take()};
  };
  workInOrder(count, work, [&](int i) {
    const auto [result, printed] = *std::exchange(done[static_cast<size_t>(i)], std::nullopt);
    COutput::print(printed);
    return take(i, result);
  });
}
