#pragma once

#include <cstddef>

/// Singly linked list of records that carry the link themselves. It owns nothing; records must be
/// taken out before they go.
template<class Record, Record* Record::*Next>
class SimpleList {
public:
    Record* GetHead() const { return m_pHead; }
    /// Makes `record` the first one.
    void AddHead(Record* record) {
        record->*Next = m_pHead;
        m_pHead = record;
    }
    /// Takes a record out; false when it is not in the list. Cost: one step for each before it.
    bool Remove(Record* record) {
        Record** link = &m_pHead;
        while (*link != nullptr && *link != record) {
            link = &((*link)->*Next);
        }
        if (*link == nullptr) {
            return false;
        }
        *link = record->*Next;
        record->*Next = nullptr;
        return true;
    }
    std::size_t GetCount() const {
        std::size_t count = 0;
        for (const Record* record = m_pHead; record != nullptr; record = record->*Next) {
            ++count;
        }
        return count;
    }

    Record* m_pHead = nullptr;
};
