// The form helpers and the picture copy through `telvaro batch`: each
// control's state and calls, and the windows the window calls told.
#include "forms/forms_fixture.h"

namespace telvaro {
namespace {

using nlohmann::json;

TEST(FormsBatch, AnswersCarryControlStatesCallsAndWindows) {
    struct Case {
        const char* request;
        std::vector<std::pair<const char*, json>> expected;  // at pointers into the answer
    };
    const std::vector<Case> cases = {
        {R"({"id":1,"method":"VerificaNumero","args":[{"object":"textbox","text":"12.3"},53]})",
         {{"/byref/0/value/text", "12.35"}, {"/byref/0/value/calls", {"Text", "Text", "Text=", "Text", "SelStart="}}}},
        {R"({"id":3,"method":"fn_Backspace","args":[{"object":"combobox","text":"abc"}]})",
         {{"/byref/0/value/calls", {"Text", "Text=", "SelStart="}}}},
        {R"({"id":4,"method":"fn_ScrollHListBox","args":[{"object":"list","items":["abc","abcdef"],"fontSize":8}]})",
         {{"/windows/0/horizontalExtent", 36}}},
        {R"({"id":5,"method":"fn_LimpiaTextObjetos","args":[{"object":"form","controls":[{"object":"textbox","name":"t","text":"x"},{"object":"grid","name":"g"}]}]})",
         {{"/byref/0/value/controls/0/text", ""}, {"/byref/0/value/controls/1/calls", {"TextMatrix"}}}},
        {R"({"id":7,"method":"HabilitaControles","args":[{"object":"frame","name":"fra","controls":[{"object":"textbox","name":"t"}]},true]})",
         {{"/byref/0/value/enabled", true}}},
        {R"({"id":8,"method":"esChanged","args":[{"object":"checkbox","tag":"x"},32,false]})", {{"/result/value", -1}}},
        // The destination comes back with the copy as its Picture (3 x 2 pixels
        // of the source's 45 x 30 twips), visible (DestinoInvisible False), and
        // the calls in the order of the copy.
        {R"({"id":9,"method":"ImgCopiaImagen","args":[{"object":"picturebox","name":"picFuente","width":45,"height":30,"left":90,"picture":{"object":"picture","width":4,"height":4}},{"object":"picturebox","name":"picCopia"},false]})",
         {{"/byref/1/value/visible", true},
          {"/byref/1/value/left", 90.0},
          {"/byref/1/value/picture/width", 3},
          {"/byref/1/value/picture/height", 2},
          {"/byref/1/value/calls",
           {"ScaleMode=", "Height=", "Width=", "Left=", "Top=", "AutoRedraw=", "hDC", "hDC", "Image",
            "Picture=", "AutoRedraw="}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.request);
        const json answer = batchAnswer(c.request);
        ASSERT_FALSE(answer.contains("error")) << answer.dump();
        for (const auto& [pointer, expected] : c.expected)
            EXPECT_EQ(answer.at(json::json_pointer(pointer)), expected) << pointer;
    }
}

}  // namespace
}  // namespace telvaro
