// The library's hidden form frmDll, as the methods reach it: the pictures
// of its four check-box controls imSI, imNO, imSid and imNOd. The form is
// loaded on first reference, once per calling thread (its pictures are made
// then, through the platform's picture service), is never shown and stays
// loaded; every cell given a check box shares the form's picture objects.
#pragma once

#include "platform/check_box_drawing.h"
#include "runtime/variant.h"

namespace telvaro {

class Fun;

// frmDll.<control>.Picture for the control holding that check box.
Variant frmDllPicture(const Fun& fun, CheckBoxPicture kind);

}  // namespace telvaro
