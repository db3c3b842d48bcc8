#include "tavi/theme/performance_profile.h"

namespace tavi {
namespace {

PerformanceProfile& current() {
    static PerformanceProfile profile = PerformanceProfile::kBalanced;
    return profile;
}

}  // namespace

void setPerformanceProfile(PerformanceProfile profile) {
    current() = profile;
}

PerformanceProfile performanceProfile() {
    return current();
}

}  // namespace tavi
