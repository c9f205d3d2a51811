// SPDX-License-Identifier: BSD-3-Clause
// Prints every text of an error or warning of the module: the identifier and, on the next line, the
// text with its line breaks as blanks.
#include "hosts/messages/message_catalogue.h"

#include <algorithm>
#include <cstdio>
#include <string>

int main()
{
    for (const auto& templates :
         {hosts::messages::generalTemplates(), hosts::messages::callTemplates()}) {
        for (const auto& message : templates) {
            std::string text(message.text);
            std::replace(text.begin(), text.end(), '\n', ' ');
            std::printf("%s\n%s\n", std::string(message.identifier).c_str(), text.c_str());
        }
    }
}
