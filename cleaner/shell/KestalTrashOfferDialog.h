#pragma once

// The Trash watch's dialogs in the window: the offer itself when no
// notification server answers, and the report of its clean.
class KestalTrashOfferDialog {
public:
    // Hands both to the notification service; once, at start-up.
    static void install();
};
