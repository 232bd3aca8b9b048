#include "platform/HostEvents.h"

#include <algorithm>
#include <vector>

namespace host {
namespace {

/// The host is one for a process, and so are those who watch it.
struct Watch {
    std::vector<EventListener*> listeners;
    int silences = 0;
};

Watch& watch() {
    static Watch watch;
    return watch;
}

} // namespace

EventListener::~EventListener() = default;

void addListener(EventListener& listener) {
    watch().listeners.push_back(&listener);
}

void removeListener(EventListener& listener) {
    std::erase(watch().listeners, &listener);
}

bool isListening() {
    return !watch().listeners.empty() && watch().silences == 0;
}

void announce(const std::wstring& line) {
    if (!isListening()) {
        return;
    }
    // A listener may leave, or take others away, while it is told.
    const std::vector<EventListener*> told = watch().listeners;
    for (EventListener* listener : told) {
        const std::vector<EventListener*>& present = watch().listeners;
        if (std::find(present.begin(), present.end(), listener) != present.end()) {
            listener->onEvent(line);
        }
    }
}

EventSilence::EventSilence() {
    ++watch().silences;
}

EventSilence::~EventSilence() {
    --watch().silences;
}

} // namespace host
