#include "platform/message_box.h"

namespace telvaro {

ButtonSet buttonsOf(int style) {
    using namespace msgbox;
    ButtonSet set;
    auto assign = [&](std::initializer_list<int> answers) {
        set.count = 0;
        for (int a : answers) set.answers[set.count++] = a;
    };
    switch (style & 0xF) {
        case OkCancel: assign({Ok, Cancel}); break;
        case AbortRetryIgnore: assign({Abort, Retry, Ignore}); break;
        case YesNoCancel: assign({Yes, No, Cancel}); break;
        case YesNo: assign({Yes, No}); break;
        case RetryCancel: assign({Retry, Cancel}); break;
        default: assign({Ok}); break;
    }
    int position = (style >> 8) & 0xF;  // 0x100 second button, 0x200 third
    set.defaultAnswer = set.answers[position < set.count ? position : 0];
    return set;
}

int closingAnswer(int style) {
    const ButtonSet set = buttonsOf(style);
    for (int wanted : {msgbox::Cancel, msgbox::No, msgbox::Ok, msgbox::Abort}) {
        for (int i = 0; i < set.count; ++i)
            if (set.answers[i] == wanted) return wanted;
    }
    return set.defaultAnswer;
}

String answerLabel(int answer) {
    switch (answer) {
        case msgbox::Ok: return u"Aceptar";
        case msgbox::Cancel: return u"Cancelar";
        case msgbox::Abort: return u"Anular";
        case msgbox::Retry: return u"Reintentar";
        case msgbox::Ignore: return u"Omitir";
        case msgbox::Yes: return u"Sí";
        case msgbox::No: return u"No";
        default: return u"?";
    }
}

}  // namespace telvaro
