#pragma once

#include <functional>

// Work in a thread of its own, while this thread shows windows.

namespace WorkThread {
/// Does work in a thread of its own, and handles events until it is done. What it throws is thrown
/// here. If no thread can be started, it is done in this one, and events wait.
/// \param look is called at once, and then every so often while the work goes on.
/// \param interval how often, in milliseconds.
///
/// \code
/// std::atomic<bool> goesOn = true;
/// WorkThread::run([&] { result = import(goesOn); }, [&] { goesOn = showProgress(); }, 40);
/// \endcode
void run(const std::function<void()> &work, const std::function<void()> &look, int interval);
} // namespace WorkThread
