#pragma once

#include "TKVltSearchModule18.h"

#include <gtest/gtest.h>

#include <memory>
#include <pthread.h>

namespace module_tests {

/// Searches on a thread with a stack of eight megabytes, to which no other thread adds, and keeps
/// what was found.
class DeepSearch {
public:
    /// The network found, which must be one of this class; the search must give 1.
    template<class Network>
    Network* search(AcDbObjectId start, AcDbObjectId end = AcDbObjectId()) {
        Request request{start, end};
        pthread_attr_t attributes;
        pthread_t thread{};
        EXPECT_EQ(pthread_attr_init(&attributes), 0);
        EXPECT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{8} << 20), 0);
        EXPECT_EQ(pthread_create(&thread, &attributes, answer, &request), 0);
        EXPECT_EQ(pthread_join(thread, nullptr), 0);
        pthread_attr_destroy(&attributes);
        EXPECT_EQ(request.result, 1);
        found_.reset(request.object);
        return dynamic_cast<Network*>(request.object);
    }

private:
    /// One call of the entry.
    struct Request {
        AcDbObjectId start;
        AcDbObjectId end;
        int result = 0;
        SearchObject* object = nullptr;
    };

    static void* answer(void* argument) {
        auto* request = static_cast<Request*>(argument);
        request->result =
            GetSearchInformation(request->object, request->start, request->end, AcGePoint3d());
        return nullptr;
    }

    std::unique_ptr<SearchObject> found_;
};

} // namespace module_tests
