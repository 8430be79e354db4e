// The first source of this floor replaces this file.
