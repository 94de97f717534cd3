#pragma once

#include <string>

namespace tessarin::testing {

// The file that StorySaveFixture::FullStory() is saved as in the newsroom that
// ConfigureNewsroom() sets up, under the name "match--final.xml", on Thursday 20 February 2025
// at 09:30 with French long dates, in ISO-8859-1 mode: every row of a story file, each
// character one Windows-1252 byte, "?" for one the code page lacks.
inline const std::string kFullStoryFileIso =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- match__final.xml -->\r\n"
    "<?xml-stylesheet type=\"text/xsl\" href = \"/opt/xsl/mod\xe8le.xsl\"?>\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"3.2.1\">\r\n<Metadata>\r\n"
    "<Author Name=\"Auteur\">Jean Dupont</Author>\r\n"
    "<Email Name=\"Email\">jd@example.com</Email>\r\n"
    "<Group Name=\"Group\">Sport &amp; Loisirs</Group>\r\n"
    "<Initials Name=\"Initials\">JD</Initials>\r\n"
    "<CreationDate Name=\"Creation date\">01/02/2025</CreationDate><CreationTime>08:15"
    "</CreationTime>\r\n"
    "<LastSaveDate Name=\"Last save date\">20/02/2025</LastSaveDate><LastSaveTime>09:30"
    "</LastSaveTime>\r\n<LastSaveAuthor>Jean Dupont</LastSaveAuthor>\r\n"
    "<Publication Name=\"Publication\">Le Quotidien</Publication>\r\n"
    "<Classification Name=\"Classification\">Sports</Classification>\r\n"
    "<SectionGeneral Name=\"General section\">Football</SectionGeneral>\r\n"
    "<SubSectionGeneral Name=\"General subsection\">Ligue 1</SubSectionGeneral>\r\n"
    "<SectionLocal Name=\"Local section\">Lyon</SectionLocal>\r\n"
    "<SubSectionLocal Name=\"Local subsection\">Gerland</SubSectionLocal>\r\n"
    "<CodeLocal1 Name=\"Local code 1\">69</CodeLocal1>\r\n"
    "<CodeLocal2 Name=\"Local code 2\">A&lt;B</CodeLocal2>\r\n"
    "<PublicationDate Name=\"Publication date\">20/02/2025</PublicationDate>\r\n"
    "<PublicationDateFull>jeudi 20 f\xe9vrier 2025</PublicationDateFull>\r\n"
    "<PublicationNumber Name=\"Publication number\">123</PublicationNumber>\r\n"
    "<EventDate Name=\"Event date\">19/02/2025</EventDate>\r\n"
    "<EventDateFull>mercredi 19 f\xe9vrier 2025</EventDateFull>\r\n<Taxonomy>\r\n"
    "<Topic FormalItem=\"01000000\">Arts</Topic>\r\n</Taxonomy>\r\n<Keywords>\r\n"
    "<Keyword CategoryName=\"Lieux [*]\" CategoryIndex=\"1\">Lyon</Keyword>\r\n"
    "<Keyword CategoryName=\"Personnes\" CategoryIndex=\"3\">Aulas</Keyword>\r\n</Keywords>\r\n"
    "<Form Name=\"Story type\" Index=\"0\">Br\xe8ve</Form>\r\n"
    "<Status Name=\"Status\" FormalItem=\"Valid\xe9\">Utilisable</Status>\r\n"
    "<Genre Name=\"Genre\" FormalItem=\"Current\">Actualit\xe9</Genre>\r\n</Metadata>\r\n<Logs>\r\n"
    "<Log Type=\"W\">Envoy\xe9 \xe0 Paul</Log>\r\n<Log Type=\"\xe9\">Relu</Log>\r\n</Logs>\r\n"
    "<Body>\r\n"
    "<TextBox0 CharCount=\"8\" WordCount=\"1\" Name=\"Text box 1\">Victoire</TextBox0>\r\n"
    "<TextBox6 CharCount=\"16\" WordCount=\"4\" Name=\"Texte int\xe9gral\">Le club a gagn\xe9."
    "</TextBox6>\r\n<Signature>J. D.</Signature></Body>\r\n<Notes>\r\n"
    "<Note Name=\"V\xe9rifier\" Bookmark=\"true\">Chiffre\r\n\xe0 confirmer</Note>\r\n"
    "<Note Name=\"Autre\">x ?</Note>\r\n</Notes>\r\n<Images>\r\n<ImageBag>\r\n"
    "<Image href=\"file:///photos/stade \xe9t\xe9.jpg\"/>\r\n<Caption>Le stade</Caption>\r\n"
    "<Credit>AFP</Credit>\r\n<IPTCKeywords>foot; stade</IPTCKeywords>\r\n</ImageBag>\r\n"
    "</Images>\r\n<Files>\r\n<FileBag>\r\n<File href=\"file:///docs/plan.pdf\"/>\r\n"
    "<Description>Plan</Description>\r\n</FileBag>\r\n</Files>\r\n</Story>\r\n";

}  // namespace tessarin::testing
