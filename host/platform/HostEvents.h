#pragma once

#include <string>

/// What happens in the host, told to whoever listens. The rooms of the host call `announce`; a
/// listener is for tests and for programs that show what goes on.
namespace host {

/// Told of each event as one line of text, see HostRecorder for the lines.
class EventListener {
public:
    EventListener() = default;
    EventListener(const EventListener&) = delete;
    EventListener& operator=(const EventListener&) = delete;
    virtual ~EventListener();
    virtual void onEvent(const std::wstring& line) = 0;
};

/// Adds a listener, which must be taken away before it goes. Listeners are told in the order in
/// which they were added.
void addListener(EventListener& listener);
void removeListener(EventListener& listener);

/// Somebody listens and the host is not inside a command: what a command does to the drawing by
/// itself is not told. Callers ask before they build a line.
bool isListening();
/// Tells all listeners; nothing happens while isListening() is false.
void announce(const std::wstring& line);

/// While one of these lives nothing is told.
class EventSilence {
public:
    EventSilence();
    EventSilence(const EventSilence&) = delete;
    EventSilence& operator=(const EventSilence&) = delete;
    ~EventSilence();
};

} // namespace host
