#include "platform/HostEvents.h"

#include <algorithm>
#include <vector>

namespace host {
namespace {

/// The host is one for a process, and so are those who watch it.
struct Watch {
    std::vector<EventListener*> listeners;
    int silences = 0;
    bool isHeard = false; // settled beforehand, for each object that is opened or closed asks
};

Watch& watch() {
    static Watch watch;
    return watch;
}

void settleListening() {
    watch().isHeard = !watch().listeners.empty() && watch().silences == 0;
}

} // namespace

EventListener::~EventListener() = default;

void addListener(EventListener& listener) {
    watch().listeners.push_back(&listener);
    settleListening();
}

void removeListener(EventListener& listener) {
    std::erase(watch().listeners, &listener);
    settleListening();
}

bool isListening() {
    return watch().isHeard;
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
    settleListening();
}

EventSilence::~EventSilence() {
    --watch().silences;
    settleListening();
}

} // namespace host
