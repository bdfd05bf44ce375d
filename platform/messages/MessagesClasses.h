#pragma once

/// Makes the conversation's classes known to interface files by name. Called once by the host; again is harmless.
void registerMessagesClasses();
