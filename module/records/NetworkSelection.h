#pragma once

#include <initializer_list>

#include "platform.h"

namespace tkvlt {

/// The entities of the whole drawing that carry data of at least one of some applications, in
/// drawing order, while the object lives.
class NetworkSelection {
public:
    /// Selects; finding nothing leaves the selection empty.
    explicit NetworkSelection(std::initializer_list<const wchar_t*> applications);
    ~NetworkSelection();
    NetworkSelection(const NetworkSelection&) = delete;
    NetworkSelection& operator=(const NetworkSelection&) = delete;

    Adesk::Int32 Length() const;
    /// @param index from 0 to `Length()` less one.
    AcDbObjectId At(Adesk::Int32 index) const;

private:
    ads_name name_ = {0, 0};
    bool selected_ = false;
};

} // namespace tkvlt
