#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "config/configuration.h"
#include "text/styled_text.h"

namespace tessarin {

// The open story: every value that the story file holds and the editor shows. SaveStory
// writes it, ReadStory fills it. Metadata texts are UTF-8.

// A date and time kept as the plain strings a story file holds: the short date as the clock
// gave it, and "hh:mm". Shown joined by one blank.
struct StoryTimestamp {
    std::string date;
    std::string time;

    bool Empty() const { return date.empty() && time.empty(); }
    std::string Display() const { return date + " " + time; }
    friend bool operator==(const StoryTimestamp&, const StoryTimestamp&) = default;
};

// A checked taxonomy topic, as lstTaxonomy holds it: the topic's text and its formal number.
struct TaxonomyTopic {
    std::string text;
    std::int64_t formalNumber = 0;
    friend bool operator==(const TaxonomyTopic&, const TaxonomyTopic&) = default;
};

// A keyword of the story under a configured keyword category: the key of the category's node
// in the keyword tree ("K" followed by the category index) and the keyword's text.
struct StoryKeyword {
    std::string categoryKey;
    std::string text;
    friend bool operator==(const StoryKeyword&, const StoryKeyword&) = default;
};

// One line of the story's log and its type (a destination letter, "L", "F", "I", "A").
struct StoryLog {
    std::string text;
    std::string type;
    friend bool operator==(const StoryLog&, const StoryLog&) = default;
};

// A note for colleagues. A bookmark note also has its title standing in a text box as a
// protected anchor. A foreign note was written by someone else.
struct StoryNote {
    std::string title;
    std::string text;  // line breaks as CR LF
    bool bookmark = false;
    bool foreign = false;
    friend bool operator==(const StoryNote&, const StoryNote&) = default;
};

// A picture linked to the story, with the number at the head of its node key ("1I", "2I").
struct StoryImage {
    int number = 0;
    std::string path;  // full path of the file
    std::string caption;
    std::string credit;
    std::vector<std::string> iptcKeywords;
    friend bool operator==(const StoryImage&, const StoryImage&) = default;
};

// Another file linked to the story ("1F", "2F").
struct StoryFile {
    int number = 0;
    std::string path;
    std::string description;
    friend bool operator==(const StoryFile&, const StoryFile&) = default;
};

// The copy-fit counters of one text box.
struct BoxCounters {
    std::int32_t count = 0;           // the characters that count
    std::int32_t noteCharacters = 0;  // characters of note anchors in the box
    std::int32_t paragraphMarks = 0;  // pilcrows that the paragraph display put in
};

struct StoryRecord {
    // Identity of the author, as the metadata fields show it.
    std::string author;    // lblTxtAuthor
    std::string email;     // lblTxtEmail
    std::string group;     // lblTxtGroup
    std::string initials;  // lblTxtInitials

    StoryTimestamp creation;  // lblTxtCreationDate
    StoryTimestamp lastSave;  // lblTxtLastSaveDate

    // Classification, filled from the publications tree or typed.
    std::string publication;         // txtPublication
    std::string classification;      // txtClassification
    std::string sectionGeneral;      // txtSectionGeneral
    std::string subSectionGeneral;   // txtSubSectionGeneral
    std::string sectionLocal;        // txtSectionLocal
    std::string subSectionLocal;     // txtSubSectionLocal
    std::string codeLocal1;          // txtCodeLocal1
    std::string codeLocal2;          // txtCodeLocal2
    bool usesLocalSections = false;  // the story is classified with local sections

    bool coldStory = false;         // chkColdStory: a story without publication date
    std::string publicationDate;    // txtPublicationDate, in the short date form
    std::string publicationNumber;  // txtPublicationNumber
    std::string eventDate;          // txtEventDate

    int formIndex = -1;    // lstStoryTypes, -1 none
    int statusIndex = -1;  // lstStatus
    int genreIndex = -1;   // lstGenre

    std::vector<TaxonomyTopic> taxonomy;  // lstTaxonomy
    std::vector<StoryKeyword> keywords;   // treeKeywords, in insertion order per category
    std::vector<StoryLog> logs;           // lstLogs with lstLogsTypes
    std::vector<StoryNote> notes;         // treeNotes
    std::vector<StoryImage> images;       // treeImages
    std::vector<StoryFile> files;         // treeOtherFiles

    std::array<StyledText, kTextBoxCount> boxes;
    std::array<BoxCounters, kTextBoxCount> counters;

    std::string signature;           // txtSignature
    bool signatureEnabled = true;    // txtSignature can be typed in
    bool initialsSignature = false;  // the second signature button (initials) is chosen
};

}  // namespace tessarin
