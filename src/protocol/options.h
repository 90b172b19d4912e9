/// The player's six options: toggled in the menus, stored by the settings, read when needed.
#pragma once

namespace korvanta {

struct Options {
  bool mnuScrollLock = false;  ///< new lines leave the message view where it is
  bool mnuFilter = true;       ///< chat lines pass through the language filter
  bool mnuLogins = false;      ///< login notices are not shown
  bool mSounds = true;         ///< the server's sound cues are played
  bool mnuAutoChat = true;     ///< typed text is sent as the chat command
  bool mAuto = false;          ///< the next game is joined when the board is cleared
};

}  // namespace korvanta
