#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/windows1252.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/export_section.h"
#include "config/preferences.h"
#include "export/export_frame.h"
#include "support/replace_once.h"

namespace tessarin::testing {

// The one "now" of the writers' tests: Tuesday 5 March 2024, 09:07:30.
constexpr LocalDateTime kNow{2024, 3, 5, 9, 7, 30};

// Text written with "\n" line ends, with the CR LF line ends that the writers give.
inline std::string CrLf(std::string_view lines) {
    std::string text;
    for (const char c : lines) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

// A story with every part that the tagged-text, Milenium and EditWorks writers read: a form,
// sections at every level, a topic without a code, keywords of several categories, every
// inline tag (italic inside bold), entities, a no-break space, the special letters, a note
// inside bold, a signature, and pictures with and without a name, caption or credit.
constexpr std::string_view kLayoutStory = R"(<Story AppName="Tessarin" AppVersion="0.1.0">
<Metadata><Author Name="Auteur">Marie Dupré</Author>
<Publication Name="Publication">P/Q</Publication>
<Classification Name="Rubrique">Éco</Classification>
<SectionGeneral Name="Section">Sec</SectionGeneral>
<SubSectionGeneral Name="Sous-section">SG</SubSectionGeneral>
<SectionLocal Name="Locale">Loc</SectionLocal>
<SubSectionLocal Name="Sous-locale">SL/X</SubSectionLocal>
<PublicationDate Name="Date">28/02/2024</PublicationDate>
<Taxonomy><Topic FormalItem="04000000">Économie</Topic><Topic FormalItem="">Vide</Topic>
<Topic FormalItem="abc">Non</Topic></Taxonomy>
<Keywords><Keyword CategoryName="Lieux" CategoryIndex="1">Paris</Keyword>
<Keyword CategoryName="Gens" CategoryIndex="2">Rome</Keyword>
<Keyword CategoryName="Villes" CategoryIndex="3">Lyon</Keyword>
<Keyword CategoryName="Autres" CategoryIndex="5">Nice</Keyword>
<Keyword CategoryName="Faux" CategoryIndex="x">Brest</Keyword></Keywords>
<Form Name="Type" Index="0">News</Form></Metadata>
<Body>
<TextBox0 CharCount="5" WordCount="1" Name="Titre">Titre</TextBox0>
<TextBox6 CharCount="40" WordCount="9" Name="Texte"><b><i>x</i></b> <i>y</i> <u>z</u><sup>e</sup><p/>
<inter1>Inter</inter1><p/>
A&amp;B &lt;c&gt;&#160;<euro/><oe/><OE/><tab/>d<b>g<note>n</note>h</b></TextBox6>
<Signature>Jean</Signature></Body>
<Images><ImageBag><Image href="file:///a%20b.jpg"/><Caption>Légende</Caption><Credit>AFP</Credit>
</ImageBag><ImageBag><Image href=""/><Caption>Sans image</Caption></ImageBag>
<ImageBag><Image href="c.jpg"/></ImageBag></Images>
</Story>
)";

// A story file from lines written with "\n": CR LF line ends, in Windows-1252 under the
// ISO-8859-1 prolog, or in UTF-8 under the UTF-8 prolog.
inline std::string StoryFile(std::string_view lines, bool utf8 = false) {
    const std::string text = CrLf(utf8 ? "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                                       : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n") +
                             CrLf(lines);
    return utf8 ? text : Utf8ToWindows1252(text);
}

// A document written as the changes to another one, each applied once and in order; the test
// fails when the text a change replaces is not there.
inline std::string Changed(
    std::string text,
    std::initializer_list<std::pair<std::string_view, std::string_view>> changes) {
    for (const auto& [from, to] : changes)
        ReplaceOnce(text, from, to);
    return text;
}

// A story file's bytes, parsed; the test fails when they do not parse.
inline XmlDocument ParseStory(std::string_view bytes) {
    XmlDocument story;
    EXPECT_TRUE(story.LoadBytes(bytes)) << bytes;
    return story;
}

inline bool IsWellFormed(std::string_view bytes) {
    return XmlDocument().LoadBytes(bytes);
}

// Export sections as a configuration document writes them, inside ExportFormats.
inline ExportSettings ReadSettings(std::string_view sections) {
    const XmlDocument document =
        ParseStory("<ExportFormats>" + std::string(sections) + "</ExportFormats>");
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

// The program around a writer, with everything a test may set before it takes a context.
struct WriterSetup {
    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;

    ExportContext Context(const LocalDateTime& now = kNow) {
        ExportContext context{.configuration = configuration,
                              .window = window,
                              .preferences = preferences,
                              .user = user,
                              .userName = {}};
        context.now = now;
        return context;
    }
};

// The state a sender leaves before it calls a writer for a staged story.
inline ExportState Staged(const std::string& uploadDirectory, const std::string& storyName) {
    ExportState state;
    state.UploadDirectory = uploadDirectory;
    state.CurrentUploadNode = storyName;
    state.SourceStoryPath = uploadDirectory + storyName;
    return state;
}

}  // namespace tessarin::testing
