#include "network/network_places.h"

#include "base/text.h"
#include "network/local_share_iterator.h"
#include "tests/support/scripted_platform.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class NetworkPlacesTest : public ::testing::Test {
protected:
    ScriptedPlatform surroundings;
    ScriptedNetwork& network = surroundings.network;
    NetworkPlaces places{network, surroundings.clock};

    void pass(std::chrono::milliseconds time) { surroundings.clock.now += time; }
};

TEST_F(NetworkPlacesTest, pathForOthers_goesThroughTheInnermostShare) {
    network.used = {{u"SERVER", u"work", u"\\mnt\\work"}, {u"server2", u"deep\\cad", u"\\mnt\\work\\cad"}};
    network.own = {{u"DESK", u"public", u"\\srv\\public"}, {u"DESK", u"C$", u"\\srv\\public\\hidden"},
        {u"DESK", u"all", u"\\srv"}};
    network.longNames = {{u"\\MNT\\WORK\\a.kqp", u"\\mnt\\work\\A.kqp"},
        {u"\\mnt\\Work2\\a.kqp", u"\\mnt\\Work2\\a.kqp"}, {u"\\link\\p.kqp", u"\\srv\\public\\p.kqp"}};
    struct Case {
        CStringView path, expected;
    };
    const Case cases[] = {
        {u"\\mnt\\work\\a\\p.kqp", u"\\\\SERVER\\work\\a\\p.kqp"},
        {u"\\mnt\\work", u"\\\\SERVER\\work"},
        {u"\\mnt\\work\\cad\\p.kqp", u"\\\\server2\\deep\\cad\\p.kqp"},
        {u"\\mnt\\workshop\\p.kqp", u""},                    // only the beginning of a name
        {u"\\MNT\\WORK\\a.kqp", u"\\\\SERVER\\work\\A.kqp"}, // as it is spelled
        {u"\\mnt\\Work2\\a.kqp", u""},
        {u"\\MNT\\WORK\\new.kqp", u"\\\\SERVER\\work\\new.kqp"}, // not there yet
        {u"\\link\\p.kqp", u"\\\\DESK\\public\\p.kqp"},
        {u"\\srv\\public\\hidden\\p.kqp", u"\\\\DESK\\public\\hidden\\p.kqp"},
        {u"\\srv\\other\\p.kqp", u"\\\\DESK\\all\\other\\p.kqp"},
        {u"\\\\far\\away\\p.kqp", u"\\\\far\\away\\p.kqp"},
        {u"\\\\", u""},
        {u"C:\\p.kqp", u""},
        {u"", u""},
    };
    for (const Case& each : cases)
        EXPECT_EQ(places.networkPathOf(each.path), each.expected) << toAscii(each.path);
}

TEST_F(NetworkPlacesTest, exactCase_decidesWhereBothFoldersExist) {
    network.used = {{u"S", u"a", u"\\mnt\\Data"}};
    network.longNames = {{u"\\mnt\\data\\p", u"\\mnt\\data\\p"}};
    EXPECT_EQ(places.networkPathOf(u"\\mnt\\data\\p"), u"");
}

TEST_F(NetworkPlacesTest, answers_areRememberedForAWhile) {
    network.used = {{u"S", u"a", u"\\a"}, {u"T", u"b", u"\\b"}};
    network.longNames = {{u"\\a\\p", u"\\a\\p"}};
    EXPECT_EQ(places.networkPathOf(u"\\a\\p"), u"\\\\S\\a\\p");
    const int first = network.questions;
    EXPECT_EQ(places.networkPathOf(u"\\A\\P"), u"\\\\S\\a\\p");
    EXPECT_EQ(network.questions, first);
    network.used.clear();
    pass(NetworkPlaces::nameAge);
    EXPECT_EQ(places.networkPathOf(u"\\a\\p"), u"\\\\S\\a\\p"); // the name is asked for, the shares are known
    EXPECT_EQ(network.questions, first + 1);
    pass(NetworkPlaces::networkAge);
    EXPECT_EQ(places.networkPathOf(u"\\a\\p"), u"");
    network.used = {{u"S", u"a", u"\\a"}};
    places.forget();
    EXPECT_EQ(places.networkPathOf(u"\\a\\p"), u"\\\\S\\a\\p");
}

TEST_F(NetworkPlacesTest, cache_neverGrowsBeyondItsLimit) {
    AgedCache<int> cache(surroundings.clock, std::chrono::milliseconds(10), 3);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(cache.get(toText(i), [i] { return i; }), i);
        EXPECT_LE(cache.size(), 3u);
    }
    EXPECT_EQ(cache.get(u"99", [] { return -1; }), 99);
    pass(std::chrono::milliseconds(10));
    EXPECT_EQ(cache.get(u"99", [] { return -1; }), -1);
}

} // namespace
} // namespace ryv::test
