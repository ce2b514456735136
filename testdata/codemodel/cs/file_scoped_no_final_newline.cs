namespace NoLineBreak;
class C { }