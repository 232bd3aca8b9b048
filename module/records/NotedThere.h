#pragma once

namespace tkvlt {

/// Has something noted in a place of the caller's while this lives.
template<class Notes>
class NotedThere {
public:
    NotedThere(Notes*& place, Notes& notes) : place_(place) { place_ = &notes; }
    ~NotedThere() { place_ = nullptr; }
    NotedThere(const NotedThere&) = delete;
    NotedThere& operator=(const NotedThere&) = delete;

private:
    Notes*& place_;
};

} // namespace tkvlt
