// loadtime FILE COUNT: loads and unloads a shared object COUNT times and prints the median time of
// doing both, in nanoseconds. This process links Qt Core and nothing else of interest.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <vector>

namespace {

double cycle(const char *file)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    void *const handle = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (handle)
        dlclose(handle);
    const auto end = Clock::now();
    // An object that stays in memory would be found again instead of loaded.
    if (!handle || dlopen(file, RTLD_NOW | RTLD_NOLOAD)) {
        std::fprintf(stderr, "%s\n", handle ? "The object was not unloaded" : dlerror());
        std::exit(1);
    }
    return std::chrono::duration<double, std::nano>(end - start).count();
}

} // namespace

int main(int argc, char *argv[])
{
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    if (count < 1)
        return 2;
    std::vector<double> times;
    times.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i)
        times.push_back(cycle(argv[1]));
    const auto middle = times.begin() + count / 2;
    std::nth_element(times.begin(), middle, times.end());
    std::printf("%.0f\n", *middle);
    return 0;
}
