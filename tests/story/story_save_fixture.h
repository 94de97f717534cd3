#pragma once

#include <string>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/utf8.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "story/story_context.h"
#include "story/story_record.h"

namespace tessarin::testing {

// What a story is saved with: a configuration, the window state it filled, preferences and
// scripted answers, gathered into a StoryContext.
struct StorySaveFixture {
    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;

    StoryContext Context() {
        return StoryContext{configuration, window, preferences, user, "3.2.1"};
    }

    // A newsroom configuration that shows every row of the story file: a form, status and
    // genre vocabularies, two keyword categories ("K0" mandatory, "K2"), a taxonomy with the
    // topic "01000000", a style sheet, and a few configured captions.
    void ConfigureNewsroom() {
        configuration.identity.author = "Jean Dupont";
        StoryForm form;
        form.name = "Br\u00e8ve";
        configuration.forms.push_back(form);
        configuration.status.entries = {{"Utilisable", "Valid\u00e9"}};
        configuration.genre.entries = {{"Actualit\u00e9", "Current"}};
        configuration.keywordsOn = true;
        configuration.taxonomyOn = true;
        preferences.XSLT = "/opt/xsl/mod\u00e8le.xsl";
        window.Control("lblAuthor").caption = "Auteur";
        window.Control("lblTextBox6").caption = "Texte int\u00e9gral";

        TreeModel& keywords = window.Tree("treeKeywords");
        TreeNode& root = keywords.Add(nullptr, Node("K", "Mots", ""));
        keywords.Add(&root, Node("K0", "Lieux [*]", "0"));
        keywords.Add(&root, Node("K2", "Personnes", "2"));

        TreeModel& taxonomy = window.Tree("treeTaxonomy");
        TreeNode& topics = taxonomy.Add(nullptr, Node("T0", "Sujets", ""));
        TreeNode arts = Node("T0/1", "Arts", "01000000");
        arts.hasCheckbox = true;
        taxonomy.Add(&topics, arts);
    }

    static TreeNode Node(std::string key, std::string text, std::string tag) {
        TreeNode node;
        node.key = std::move(key);
        node.text = std::move(text);
        node.tag = std::move(tag);
        return node;
    }

    // A story with every field filled.
    static StoryRecord FullStory() {
        StoryRecord story;
        story.author = "Jean Dupont";
        story.email = "jd@example.com";
        story.group = "Sport & Loisirs";
        story.initials = "JD";
        story.creation = {"01/02/2025", "08:15"};
        story.lastSave = {"02/02/2025", "11:00"};
        story.publication = "Le Quotidien";
        story.classification = "Sports";
        story.sectionGeneral = "Football";
        story.subSectionGeneral = "Ligue 1";
        story.sectionLocal = "Lyon";
        story.subSectionLocal = "Gerland";
        story.codeLocal1 = "69";
        story.codeLocal2 = "A<B";
        story.publicationDate = "20/02/2025";
        story.publicationNumber = "123";
        story.eventDate = "19/02/2025";
        story.formIndex = 0;
        story.statusIndex = 0;
        story.genreIndex = 0;
        story.taxonomy = {{"Arts", 1000000}};
        // One keyword keyed as a story names its category, one as the tree does.
        story.keywords = {{"0K", "Lyon"}, {"K2", "Aulas"}};
        story.logs = {{"Envoy\u00e9 \u00e0 Paul", ""}, {"Relu", "\u00e9"}};
        story.notes = {{"V\u00e9rifier", "Chiffre\r\n\u00e0 confirmer", true, false},
                       {"Autre", "x \u0101", false, false}};
        story.images = {
            {1, "/photos/stade \u00e9t\u00e9.jpg", "Le stade", "AFP", {"foot", "stade"}}};
        story.files = {{1, "/docs/plan.pdf", "Plan"}};
        story.boxes[0] = StyledText(u"Victoire");
        story.boxes[6] = StyledText(u"Le club a gagn\u00e9.");
        story.signature = "J. D.";
        return story;
    }

    // A story with one word in the main box and nothing else.
    static StoryRecord OneWordStory(std::u16string_view word = u"x") {
        StoryRecord story;
        story.boxes[6] = StyledText(word);
        return story;
    }
};

}  // namespace tessarin::testing
