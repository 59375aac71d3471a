/// The security area as a whole: which bytes are read, golden texts.
#include "security_area.h"

using namespace security;

TEST(SecurityBytes, AreThoseOfTheSections) {
    const Reads all[] = {
        {dot1x,
         everyTextFilled,
         {{180314, 180352}, {180354, 180356}},
         {{180314, 180349}, {180352, 180352}, {180354, 180356}}},
        {dhcp,
         everyTextFilled,
         {{126280, 126284},
          {126286, 126291},
          {126296, 126359},
          {126364, 126364},
          {147404, 147407},
          {151236, 151300},
          {151305, 151305}},
         {{126280, 126284},
          {126286, 126291},
          {126296, 126359},
          {126364, 126364},
          {147404, 147407},
          {151236, 151300},
          {151305, 151305}}},
        {pppoe, nothing, {{206956, 206959}}, {{206956, 206959}}},
        {bindings,
         everyTextFilled,
         // Those that are not valid in the current image count as far as they could become so.
         {{151362, 151379},
          {151381, 151381},
          {151400, 151400},
          {151419, 151419},
          {151438, 151438},
          {151457, 151457},
          {151476, 151476},
          {151495, 151495},
          {151514, 151514},
          {151533, 151533},
          {151552, 151552},
          {151571, 151588}},
         {{151363, 151379}, {151572, 151588}}},
        {ipSource, nothing, {{151360, 151360}}, {{151360, 151360}}},
        {emptySecurity, everyTextFilled, {}, {}},
        {macLimit, nothing, {{124744, 124747}, {125088, 125091}}, {{124744, 124747}, {125088, 125091}}},
        {isolation, nothing, {{202700, 202704}}, {{202700, 202704}}},
        {isolation,
         both(
             [](ConfigImage &image) {
                 put(image.isolation.uplinks, {1, 9, 17, 25});
             },
             [](ConfigImage &) {}),
         {{202700, 202704}},
         {{202700, 202704}}},
        {storm, nothing, {{126256, 126267}, {126276, 126279}}, {{126256, 126267}, {126276, 126279}}},
        {emptyHg, everyTextFilled, {}, {}},
        {portDot1x, everyTextFilled, {{180357, 180384}}, {{180357, 180384}}},
        {portDhcp,
         everyTextFilled,
         {{147408, 147463}, {149440, 149500}, {151150, 151235}, {151301, 151304}},
         {{147408, 147463}, {149440, 149500}, {151150, 151235}, {151301, 151304}}},
        {portPppoe, nothing, {{206960, 206963}}, {{206960, 206963}}},
        {guard, nothing, {{147488, 147515}}, {{147488, 147515}}},
        {guardTable,
         everyTextFilled,
         {{147520, 147524},
          {147530, 147532},
          {147540, 147555},
          {147560, 147560},
          {147600, 147600},
          {149400, 149404},
          {149410, 149412},
          {149420, 149435}},
         {{147521, 147524}, {147540, 147555}, {149401, 149404}, {149420, 149435}}},
        {portMacLimit, nothing, {{124748, 124971}}, {}},
        {emptyStorm, everyTextFilled, {}, {}},
    };
    for (const Reads &reads : all) {
        EXPECT_EQ(reads.full, bytesTurnedOver(Mode::full, reads.emitter, reads.given, Image::current, around))
            << reads.emitter;
        if (hasTwin(reads.emitter)) {
            EXPECT_EQ(reads.delta, bytesTurnedOver(Mode::delta, reads.emitter, reads.given, Image::defaults, around))
                << reads.emitter;
        }
    }
}

TEST(SecurityBytes, OfTheDefaultImageInFullModeAreTheCircuitIds) {
    for (const char *emitter : emitters) {
        const Places expected = emitter == portDhcp ? Places{{149444, 149500}, {151150, 151235}} : Places{};
        EXPECT_EQ(expected, bytesTurnedOver(Mode::full, emitter, everyTextFilled, Image::defaults, around)) << emitter;
    }
}

// ------------------------------------------------------------------------------------------------------- the whole
// area

TEST(Security, IsTheGoldenText) {
    EXPECT_EQ(golden("security_full.txt"), textOfArea(Mode::full));
    EXPECT_EQ(golden("security_delta.txt"), textOfArea(Mode::delta));
}
